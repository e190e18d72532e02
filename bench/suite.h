#pragma once

#include <QString>
#include <QVector>

#include <functional>

/// One run of a piece of work: prepares, works, and gives the seconds that the work itself took.
using Run = std::function<double()>;

/// One line of the result.
struct Row
{
    QString work;
    double floor = 0;   ///< seconds, bytes, or the seconds at the smallest size
    double product = 0; ///< in the same unit
    double goal = 0;    ///< largest allowed product / floor; 0 when the row only reports
    QString unit;       ///< "s" or "MB"

    double ratio() const { return floor > 0 ? product / floor : 0; }
    bool isMet() const { return goal == 0 || ratio() <= goal; }
};

/// Runs the works and collects their rows. Each work is measured when it is handed over, floor and
/// product in turns, so that both see the same machine; a row holds the medians.
class Suite
{
public:
    /// `quick` asks for a twentieth of the data and a single repetition; times then mean nothing.
    explicit Suite(bool quick);

    /// The number of objects to use where `full` are meant.
    int scaled(int full) const;

    static constexpr int USUAL = 5; ///< repetitions
    static constexpr int MANY = 15; ///< of work that takes less than a tenth of a second

    void compare(const QString &work, const Run &floor, const Run &product, double goal,
                 int repetitions = USUAL);

    /// Times at 1, 2 and 4 times the size `count`; `run` is given the factor. The row compares the
    /// largest with the smallest; the goal is n log n times `slack`, a quarter for caches. A floor
    /// only reports: 0.
    void growth(const QString &work, int count, const std::function<double(int factor)> &run,
                double slack = 1.25);

    /// Bytes that a process of its own needed at its peak.
    void memory(const QString &work, double floor, double product, double goal);

    const QVector<Row> &rows() const { return m_rows; }
    bool isQuick() const { return m_quick; }

private:
    /// Medians in seconds, in the order of `runs`.
    QVector<double> measure(const QVector<Run> &runs, int repetitions);
    void add(const Row &row);

    const bool m_quick;
    QVector<Row> m_rows;
};
