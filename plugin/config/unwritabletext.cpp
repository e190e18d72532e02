// Searches for the text that makes a save fail.

#include "config/configurationfile.h"

#include <algorithm>
#include <iterator>

namespace VLT {

namespace {

bool isForbidden(QChar c)
{
    const ushort code = c.unicode();
    return code >= 0xfffe || (code < 0x20 && code != '\t' && code != '\n' && code != '\r');
}

/// Visits texts until one cannot be written.
class Search
{
public:
    std::optional<QString> found;

    void look(const QString &text)
    {
        if (!found)
            found = unwritableText(text);
    }

    void look(const std::optional<QString> &text)
    {
        if (text)
            look(*text);
    }

    void look(const VLT_Rate &rate)
    {
        look(rate.name);
        look(rate.value);
    }

    void look(const VLT_VcdFile &file)
    {
        for (const QString &text :
             {file.file, file.entity, file.startTime, file.endTime, file.timeUnit})
            look(text);
    }

    template<class NamedRecord>
    void look(const NamedRecord &record)
    {
        look(record.name);
    }

    template<class Record>
    void look(const QVector<Record> &records)
    {
        for (const Record &record : records)
            look(record);
    }
};

} // namespace

std::optional<QString> unwritableText(const QString &text)
{
    if (std::none_of(text.begin(), text.end(), isForbidden) && text.isValidUtf16())
        return std::nullopt;
    QString rest;
    std::remove_copy_if(text.begin(), text.end(), std::back_inserter(rest), isForbidden);
    return rest;
}

std::optional<QString> unwritableText(const Configuration &configuration)
{
    Search search;
    const Conditions &conditions = configuration.conditions;
    for (const auto *text : {&conditions.tempGrade, &conditions.process, &conditions.heatSink,
                             &conditions.airFlow, &conditions.boardThermalModel})
        search.look(*text);
    search.look(configuration.rates.records);
    search.look(configuration.files.records);
    search.look(configuration.clocks.records);
    search.look(configuration.ports.records);
    search.look(configuration.bsrams.records);
    search.look(configuration.dffs.records);
    return search.found;
}

} // namespace VLT
