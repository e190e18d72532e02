#include "samplemodel.h"

#include "document/vltview.h"
#include "tables/recordlist.h"

#include <QtTest>

using VLT::RecordList;
using VLT::VLTView;

class TestRecordModel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void servesColumns();
    void storesEditedValues_data();
    void storesEditedValues();
    void sortsStablyBothWays();
    void longSortMatchesStableSort_data();
    void longSortMatchesStableSort();
    void usesRowNotIndexPointer();
    void removesRows_data();
    void removesRows();
    void nameCountsFollowList();

private:
    Sample *append(const char *name, float rate = -1, bool fixed = false)
    {
        auto sample = std::make_unique<Sample>();
        sample->name = QString::fromLatin1(name);
        sample->rate = rate;
        sample->fixed = fixed;
        m_records->append(std::move(sample));
        return m_records->list().last();
    }
    QVariant cell(int row, int column, int role = Qt::DisplayRole) const
    {
        return m_model->data(m_model->index(row, column), role);
    }

    std::unique_ptr<VLTView> m_view;
    std::unique_ptr<RecordList<Sample>> m_records;
    std::unique_ptr<SampleModel> m_model;
};

void TestRecordModel::init()
{
    m_view = std::make_unique<VLTView>(DEV::DeviceArg(), nullptr);
    m_records = std::make_unique<RecordList<Sample>>();
    m_model = std::make_unique<SampleModel>(m_view.get(), m_records->list());
    m_records->follow(m_model.get());
}

void TestRecordModel::cleanup()
{
    m_model.reset();
    m_records.reset();
    m_view.reset();
}

void TestRecordModel::servesColumns()
{
    QAbstractItemModelTester tester(m_model.get());
    append("a", 33.3f);
    append("b", -1, true)->load = 5.5f;
    m_model->reload();
    QCOMPARE(m_model->columnCount(), 3);
    QCOMPARE(cell(0, 1, Qt::ToolTipRole), QVariant(33.3f));
    QVERIFY(!cell(1, 1).isValid());
    QCOMPARE(cell(1, 1, Qt::EditRole).toFloat(), 50.f);
    QCOMPARE(cell(1, 2).toString(), QStringLiteral("5.5pF"));
    QVERIFY(!cell(0, 2, Qt::EditRole).isValid());
    QCOMPARE(cell(1, 1, Qt::BackgroundRole).value<QBrush>(), QBrush(Qt::gray, Qt::SolidPattern));
    QVERIFY(!cell(0, 1, Qt::BackgroundRole).isValid());
    QVERIFY(m_model->flags(m_model->index(0, 1)).testFlag(Qt::ItemIsEditable));
    QVERIFY(!m_model->flags(m_model->index(1, 1)).testFlag(Qt::ItemIsEditable));

    const QModelIndex last = m_model->index(1, 1);
    m_model->remove(2);
    m_model->remove(1);
    QCOMPARE(m_model->rowCount(), 1);
    // An index that outlived its row.
    QVERIFY(!m_model->data(last, Qt::DisplayRole).isValid());
    QVERIFY(!m_model->setData(last, 5, Qt::EditRole));
    QVERIFY(!m_model->flags(last).testFlag(Qt::ItemIsEditable));
}

void TestRecordModel::storesEditedValues_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<float>("stored");
    QTest::newRow("number") << QVariant(QStringLiteral("33.30")) << 33.3f;
    QTest::newRow("same number") << QVariant(QStringLiteral("12.50")) << 12.5f;
    QTest::newRow("unset") << QVariant(-1) << -1.f;
    QTest::newRow("no number") << QVariant(QStringLiteral("abc")) << 0.f;
    QTest::newRow("not finite") << QVariant(QStringLiteral("inf")) << 0.f;
}

void TestRecordModel::storesEditedValues()
{
    QFETCH(QVariant, value);
    QFETCH(float, stored);
    const QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
    Sample *sample = append("a");
    m_model->reload();
    sample->rate = 12.5f;
    m_view->setModified(false);
    const bool changes = stored != 12.5f;
    QCOMPARE(m_model->setData(m_model->index(0, 1), value, Qt::EditRole), changes);
    QCOMPARE(sample->rate, stored);
    QCOMPARE(m_view->isModified(), changes);
    QCOMPARE(changed.count(), 0);
}

void TestRecordModel::sortsStablyBothWays()
{
    append("b", 2);
    append("A", -1);
    append("a", 2);
    append("c", -1);
    m_model->reload();
    const QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
    for (const int column : {-1, 2, 4})
        m_model->sort(column, Qt::AscendingOrder);
    QCOMPARE(changed.count(), 0);
    m_model->sort(1, Qt::AscendingOrder);
    QCOMPARE(changed.count(), 1);
    QVERIFY(!changed.first().at(0).toModelIndex().isValid());
    QCOMPARE(m_model->names(), QStringLiteral("A c b a"));
    m_model->sort(1, Qt::DescendingOrder);
    QCOMPARE(m_model->names(), QStringLiteral("b a A c"));
    m_model->sort(0, Qt::AscendingOrder);
    QCOMPARE(m_model->names(), QStringLiteral("a A b c"));
    m_model->sort(3, Qt::AscendingOrder); // not shown, but served
    QCOMPARE(m_model->names(), QStringLiteral("c b a A"));
    QVERIFY(!m_view->isModified());
}

void TestRecordModel::longSortMatchesStableSort_data()
{
    QTest::addColumn<QString>("letters");
    QTest::newRow("ASCII") << QStringLiteral("aAbB/[1");
    QTest::newRow("folding across blocks")
        << QStringLiteral("sS\u017F\u212AkK\u1E9E\u00DF\u0130i\uFF21");
    QTest::newRow("beyond 16 bits") << QStringLiteral("a\uE000\uFB00\U00010400\U00010428");
}

/// Long lists are sorted by folded copies of the names; the order must be the same.
void TestRecordModel::longSortMatchesStableSort()
{
    QFETCH(QString, letters);
    const QVector<uint> alphabet = letters.toUcs4();
    QRandomGenerator random(7);
    for (int i = 0; i < 5000; ++i) {
        QVector<uint> name(random.bounded(4));
        std::generate(name.begin(), name.end(),
                      [&] { return alphabet[random.bounded(alphabet.size())]; });
        append("")->name = QString::fromUcs4(name.constData(), name.size());
    }
    m_model->reload();
    QList<Sample *> expected = m_records->list();
    std::stable_sort(expected.begin(), expected.end(), SampleModel::lessThanByName);
    m_model->sort(0, Qt::AscendingOrder);
    QCOMPARE(m_records->list(), expected);
    std::stable_sort(expected.begin(), expected.end(), SampleModel::greaterThanByName);
    m_model->sort(0, Qt::DescendingOrder);
    QCOMPARE(m_records->list(), expected);
}

void TestRecordModel::usesRowNotIndexPointer()
{
    append("b", 2);
    Sample *second = append("a", 1);
    m_model->reload();
    const QModelIndex first = m_model->index(0, 1);
    QCOMPARE(static_cast<Sample *>(first.internalPointer())->rate, 2.f);
    m_model->sort(0, Qt::AscendingOrder);
    QCOMPARE(m_model->data(first, Qt::DisplayRole).toFloat(), 1.f);
    m_model->setData(first, 9, Qt::EditRole);
    QCOMPARE(second->rate, 9.f);
}

void TestRecordModel::removesRows_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("resets");
    QTest::newRow("one by one") << 8 << 0;
    QTest::newRow("in one pass") << 1000 << 1;
}

void TestRecordModel::removesRows()
{
    QFETCH(int, count);
    const QAbstractItemModelTester tester(m_model.get());
    const QSignalSpy reset(m_model.get(), &QAbstractItemModel::modelReset);
    QVector<int> rows;
    for (int row = 0; row < count; ++row) {
        append(QByteArray::number(row).constData());
        if (row % 2 == 0)
            rows << row;
    }
    m_model->reload();
    const int before = reset.count();
    m_model->removeRecords(rows);
    QTEST(reset.count() - before, "resets");
    QCOMPARE(m_model->rowCount(), count / 2);
    for (int row = 0; row < count / 2; ++row)
        QCOMPARE(cell(row, 0).toInt(), 2 * row + 1);
}

void TestRecordModel::nameCountsFollowList()
{
    const auto listed = [this](const char *name) {
        return m_records->contains(QString::fromLatin1(name));
    };
    append("twice");
    append("twice");
    m_model->reload();
    QVERIFY(listed("twice") && !listed("Twice"));
    append("late");
    QVERIFY(listed("late"));
    m_model->remove(0);
    QVERIFY(listed("twice"));
    m_model->remove(0);
    QVERIFY(!listed("twice") && listed("late"));

    append("later");
    m_model->reload();
    QVERIFY(listed("later"));

    QVector<int> rows(250);
    std::iota(rows.begin(), rows.end(), 1);
    for (int i = 0; i < rows.size(); ++i)
        append("many");
    m_model->reload();
    m_model->removeRecords(rows);
    QVERIFY(!listed("later") && listed("many"));

    const QList<Sample *> before = m_records->list();
    m_records->replace({new Sample, new Sample});
    QVERIFY(!listed("many"));
    qDeleteAll(before);
}

QTEST_MAIN(TestRecordModel)
#include "test_recordmodel.moc"
