#include "suite.h"

#include <benchmark/benchmark.h>

#include <QHash>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

/// Keeps every repetition's time; the medians are ours, since rows are made of two benchmarks.
class Collector : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context &) override { return true; }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.run_type == Run::RT_Iteration)
                m_times[QString::fromStdString(run.run_name.function_name)].append(
                    run.GetAdjustedRealTime());
        }
    }

    double median(const QString &name) const
    {
        QVector<double> times = m_times.value(name);
        if (times.isEmpty())
            return 0;
        std::sort(times.begin(), times.end());
        const int middle = times.size() / 2;
        return times.size() % 2 ? times[middle] : (times[middle - 1] + times[middle]) / 2;
    }

private:
    QHash<QString, QVector<double>> m_times;
};

} // namespace

Suite::Suite(bool quick)
    : m_quick(quick)
{
}

int Suite::scaled(int full) const
{
    return m_quick ? full / 20 : full;
}

QVector<double> Suite::measure(const QVector<Run> &runs, int repetitions)
{
    benchmark::ClearRegisteredBenchmarks();
    for (int i = 0; i < runs.size(); ++i) {
        const Run &run = runs[i];
        const auto body = [run](benchmark::State &state) {
            for ([[maybe_unused]] auto _ : state)
                state.SetIterationTime(run());
        };
        benchmark::RegisterBenchmark(std::to_string(i).c_str(), body)
            ->UseManualTime()
            ->Unit(benchmark::kSecond)
            ->Iterations(1)
            ->Repetitions(m_quick ? 1 : repetitions);
    }
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);

    QVector<double> medians;
    for (int i = 0; i < runs.size(); ++i)
        medians.append(collector.median(QString::number(i)));
    return medians;
}

void Suite::compare(const QString &work, const Run &floor, const Run &product, double goal,
                    int repetitions)
{
    const QVector<double> times = measure({floor, product}, repetitions);
    add({work, times[0], times[1], goal, QStringLiteral("s")});
}

void Suite::growth(const QString &work, int count, const std::function<double(int)> &run,
                   double slack)
{
    const QVector<double> times =
        measure({[&] { return run(1); }, [&] { return run(2); }, [&] { return run(4); }}, USUAL);
    const double goal = slack * 4 * std::log(4.0 * count) / std::log(double(count));
    const QString middle = QString::number(times[1], 'f', 3);
    add({QStringLiteral("%1, %2 to %3 (twice: %4 s)")
             .arg(work, QString::number(count), QString::number(4 * count), middle),
         times[0], times[2], goal, QStringLiteral("s")});
}

void Suite::memory(const QString &work, double floor, double product, double goal)
{
    constexpr double megabyte = 1024 * 1024;
    add({work, floor / megabyte, product / megabyte, goal, QStringLiteral("MB")});
}

void Suite::add(const Row &row)
{
    m_rows.append(row);
    std::fprintf(stderr, "  %s: %.4g %s, floor %.4g %s\n", qPrintable(row.work), row.product,
                 qPrintable(row.unit), row.floor, qPrintable(row.unit));
}
