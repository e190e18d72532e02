#include "check/report/report.h"

#include <QtTest>

using namespace Check;

namespace {

Finding finding(const char *rule, int line, const char *name, const char *message)
{
    return {findRule(QString::fromLatin1(rule)),
            QStringLiteral("a b/power.vlr"),
            line,
            QStringLiteral("Instance"),
            1,
            QString::fromUtf8(name),
            QString::fromUtf8(message)};
}

Report sample()
{
    Report report;
    report.inputs = {{QStringLiteral("a b/power.vlr"), "00ff"}};
    report.findings = {finding("name-missing", 14, "b", "second"),
                       finding("duplicate", 14, "c", "line\nbreak"),
                       finding("clock-unknown", 3, "a", "first")};
    sortFindings(&report.findings);
    return report;
}

QJsonObject sarifRun(const Report &report, int maxPerRule)
{
    return QJsonDocument::fromJson(sarifReport(report, maxPerRule, QStringLiteral("1.0")))
        .object()[QLatin1String("runs")]
        .toArray()
        .first()
        .toObject();
}

QStringList fingerprints(const QJsonObject &run)
{
    QStringList prints;
    const QJsonArray results = run[QLatin1String("results")].toArray();
    for (const QJsonValue &result : results)
        prints << result[QLatin1String("partialFingerprints")]
                      .toObject()
                      .constBegin()
                      .value()
                      .toString();
    return prints;
}

} // namespace

class TestReports : public QObject
{
    Q_OBJECT

private slots:
    void text();
    void json();
    void sarif();
    void sarifSumsUp();
};

void TestReports::text()
{
    QCOMPARE(textReport(sample()),
             QByteArray("a b/power.vlr:3: note: first [clock-unknown]\n"
                        "a b/power.vlr:14: warning: line\\nbreak [duplicate]\n"
                        "a b/power.vlr:14: error: second [name-missing]\n"
                        "1 error, 1 warning, 1 note\n"));
    QCOMPARE(textReport({}), QByteArray("0 errors, 0 warnings, 0 notes\n"));
}

void TestReports::json()
{
    const QJsonObject root = QJsonDocument::fromJson(jsonReport(sample())).object();
    QCOMPARE(root[QLatin1String("format")].toInt(), 1);
    QCOMPARE(root[QLatin1String("inputs")].toArray().at(0)[QLatin1String("sha256")].toString(),
             QStringLiteral("00ff"));
    const QJsonObject problem = root[QLatin1String("problems")].toArray().at(1).toObject();
    QCOMPARE(problem[QLatin1String("message")].toString(), QStringLiteral("line\nbreak"));
    QCOMPARE(problem[QLatin1String("ordinal")].toInt(), 1);
    QVERIFY(!problem.contains(QLatin1String("proposal")));
    QCOMPARE(root[QLatin1String("counts")][QLatin1String("warning")].toInt(), 1);
}

/// What the published schema requires, and what services need to follow a finding over time.
void TestReports::sarif()
{
    const QByteArray bytes = sarifReport(sample(), 100, QStringLiteral("1.0"));
    QCOMPARE(bytes, sarifReport(sample(), 100, QStringLiteral("1.0")));
    const QJsonObject run = sarifRun(sample(), 100);
    const QJsonObject driver = run[QLatin1String("tool")][QLatin1String("driver")].toObject();
    QVERIFY(!driver[QLatin1String("name")].toString().isEmpty());
    const QJsonArray rules = driver[QLatin1String("rules")].toArray();
    const QJsonArray results = run[QLatin1String("results")].toArray();
    QCOMPARE(results.size(), 3);
    for (const QJsonValue &value : results) {
        const int index = value[QLatin1String("ruleIndex")].toInt(-1);
        QCOMPARE(rules.at(index)[QLatin1String("id")], value[QLatin1String("ruleId")]);
        QVERIFY(!value[QLatin1String("message")][QLatin1String("text")].toString().isEmpty());
        const QJsonValue location = value[QLatin1String("locations")].toArray().at(0);
        const QJsonValue physical = location[QLatin1String("physicalLocation")];
        QCOMPARE(physical[QLatin1String("artifactLocation")][QLatin1String("uri")].toString(),
                 QStringLiteral("a%20b/power.vlr"));
        QVERIFY(physical[QLatin1String("region")][QLatin1String("startLine")].toInt() > 0);
        QVERIFY(!location[QLatin1String("logicalLocations")].toArray().isEmpty());
    }

    Report moved = sample();
    for (Finding &each : moved.findings)
        each.line += 5;
    QCOMPARE(fingerprints(sarifRun(moved, 100)), fingerprints(run));
    const QStringList prints = fingerprints(run);
    QCOMPARE(QSet<QString>(prints.begin(), prints.end()).size(), 3);
}

void TestReports::sarifSumsUp()
{
    Report report;
    for (int i = 0; i < 5; ++i)
        report.findings << finding("name-missing", i + 1, "same", "same");
    report.findings << finding("duplicate", 1, "a", "b");
    const QJsonObject run = sarifRun(report, 3);
    const QJsonArray results = run[QLatin1String("results")].toArray();
    QCOMPARE(results.size(), 5); // three, their rest, and the other rule's
    QVERIFY(results.last()[QLatin1String("message")][QLatin1String("text")].toString().startsWith(
        QLatin1String("2 more")));
    const QStringList prints = fingerprints(run);
    QCOMPARE(QSet<QString>(prints.begin(), prints.end()).size(), 5);
}

QTEST_APPLESS_MAIN(TestReports)

#include "test_reports.moc"
