#pragma once

#include "tables/recordmodel.h"

/// A record with one column of every kind.
struct Sample
{
    QString name;
    float rate = -1;
    float load = -1;
    bool fixed = false;
};

class SampleModel : public VLT::RecordModel<Sample>
{
public:
    SampleModel(VLT::VLTView *view, QList<Sample *> &records, QObject *parent = nullptr)
        : RecordModel(view, records, parent,
                      {Column::text("Name", &Sample::name)
                           .sortedBy(lessThanByName, greaterThanByName, &Sample::name),
                       Column::number("Rate", &Sample::rate, 50)
                           .editable([](const Sample &sample) { return !sample.fixed; })
                           .gray([](const Sample &sample) { return sample.fixed; })
                           .sortedBy(lessThanByRate, greaterThanByRate),
                       Column::number("Load", &Sample::load, {}, "%1pF").editable(),
                       Column::served(nullptr, [](const Sample &sample, int role) {
                           return role == Qt::DisplayRole ? sample.name.toUpper() : QVariant();
                       }).sortedBy(greaterThanByName, lessThanByName)})
    {
    }

    static bool lessThanByRate(Sample *const &a, Sample *const &b) { return a->rate < b->rate; }
    static bool greaterThanByRate(Sample *const &a, Sample *const &b) { return a->rate > b->rate; }

    /// The names in the order of the rows.
    QString names() const
    {
        QStringList names;
        for (int row = 0; row < rowCount(); ++row)
            names << data(index(row, 0), Qt::DisplayRole).toString();
        return names.join(QLatin1Char(' '));
    }
};
