#include "check/rules/rules.h"

#include "config/filenames.h"
#include "config/limits.h"

#include <QDir>
#include <QFileInfo>

namespace Check {

namespace {

void checkRates(const ConfigurationInput &input, Findings *findings)
{
    const VLT::RateSection &section = input.configuration.rates;
    const bool isToggle = section.unit == VLT::RateUnit::Toggle;
    const double limit = (isToggle ? VLT::TOGGLE_RATE : VLT::SIGNAL_RATE).maximum;
    const QString limitText =
        isToggle ? QStringLiteral("200 %") : QStringLiteral("99999999 transitions/s");
    for (int i = 0; i < section.records.size(); ++i) {
        const VLT::VLT_Rate &rate = section.records.at(i);
        const RecordPlace place{VLT::NODE_NET, i + 1, input.report.lines.rates.value(i), rate.name};
        if (rate.value.isEmpty())
            findings->add("rate-empty", place,
                          QStringLiteral("net \"%1\" has no rate: the editor refuses to save")
                              .arg(rate.name));
        else if (rate.value.toDouble() > limit)
            findings->add("rate-limit", place,
                          QStringLiteral("the rate %1 of net \"%2\" is over %3")
                              .arg(rate.value, rate.name, limitText));
    }
}

void checkPath(const ConfigurationInput &input, const VLT::VLT_VcdFile &file,
               const RecordPlace &place, Findings *findings)
{
    QString path = file.file;
    if (QFileInfo(path).isRelative()) {
        path = QFileInfo(input.path).absoluteDir().filePath(path);
        findings->add("file-relative", place,
                      QStringLiteral("the path of \"%1\" is relative: it is looked for in the "
                                     "configuration's folder here, in the working folder by the "
                                     "editor")
                          .arg(file.file));
    }
    if (!QFileInfo(path).isFile())
        findings->add("file-missing", place,
                      QStringLiteral("the activity file \"%1\" does not exist").arg(file.file));
}

} // namespace

void checkActivityFiles(const ConfigurationInput &input, const DesignNames *design,
                        Findings *findings)
{
    checkRates(input, findings);
    const VLT::FileSection &section = input.configuration.files;
    for (int i = 0; i < section.records.size(); ++i) {
        const VLT::VLT_VcdFile &file = section.records.at(i);
        const RecordPlace place{VLT::NODE_FILE, i + 1, input.report.lines.files.value(i),
                                file.entity};
        checkPath(input, file, place, findings);
        const bool isDesign = file.entity.isEmpty() || (design && file.entity == design->design());
        if (design && !isDesign && !design->find(ObjectKind::Instance, file.entity))
            findings->add("entity-missing", place,
                          QStringLiteral("instance \"%1\" of the activity file is not in the "
                                         "netlist")
                              .arg(file.entity));
    }
}

} // namespace Check
