#include "samplemodel.h"

#include "document/vltview.h"
#include "tables/recordlist.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QtTest>

using VLT::RecordList;
using VLT::VLTView;

class TestRecordModel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void servesItsColumns();
    void staysWithinItsBounds();
    void editsByValue_data();
    void editsByValue();
    void sortsStablyBothWays();
    void goesByRowWhateverTheIndexCarries();
    void removesRows_data();
    void removesRows();
    void namesFollowTheList();

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

void TestRecordModel::servesItsColumns()
{
    QAbstractItemModelTester tester(m_model.get());
    append("a", 33.3f);
    append("b", -1, true)->load = 5.5f;
    m_model->reload();

    QCOMPARE(m_model->columnCount(), 3);
    QCOMPARE(m_model->headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(),
             QStringLiteral("Rate"));

    QCOMPARE(cell(0, 1), QVariant(33.3f));
    QCOMPARE(cell(0, 1, Qt::ToolTipRole), QVariant(33.3f));
    QVERIFY(!cell(1, 1).isValid());
    QCOMPARE(cell(1, 1, Qt::EditRole).toFloat(), 50.f);
    QCOMPARE(cell(1, 2).toString(), QStringLiteral("5.5pF"));
    QVERIFY(!cell(0, 2, Qt::EditRole).isValid());
    QVERIFY(!cell(0, 0, Qt::EditRole).isValid());
    QCOMPARE(cell(1, 1, Qt::BackgroundRole).value<QBrush>(), QBrush(Qt::gray, Qt::SolidPattern));
    QVERIFY(!cell(0, 1, Qt::BackgroundRole).isValid());

    const auto editable = [this](int row, int column) {
        return m_model->flags(m_model->index(row, column)).testFlag(Qt::ItemIsEditable);
    };
    QVERIFY(!editable(0, 0));
    QVERIFY(editable(0, 1));
    QVERIFY(!editable(1, 1));
    QVERIFY(editable(1, 2));
}

void TestRecordModel::staysWithinItsBounds()
{
    append("a", 1);
    append("b", 2);
    m_model->reload();
    const QModelIndex last = m_model->index(1, 1);
    m_model->remove(-1);
    m_model->remove(2);
    QCOMPARE(m_model->rowCount(), 2);
    m_model->remove(1);
    // An index that outlived its row.
    QVERIFY(!m_model->data(last, Qt::DisplayRole).isValid());
    QVERIFY(!m_model->setData(last, 5, Qt::EditRole));
    QVERIFY(!m_model->flags(last).testFlag(Qt::ItemIsEditable));
    QVERIFY(!m_model->setData(QModelIndex(), 5, Qt::EditRole));
    QVERIFY(!m_model->index(1, 0).isValid());
    QVERIFY(!m_model->index(0, 3).isValid());
}

void TestRecordModel::editsByValue_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("taken");
    QTest::addColumn<float>("stored");
    const auto text = [](const char *value) { return QVariant(QString::fromLatin1(value)); };
    QTest::newRow("new") << text("33.30") << true << 33.3f;
    QTest::newRow("same") << text("12.50") << false << 12.5f;
    QTest::newRow("cleared") << QVariant(-1) << true << -1.f;
    QTest::newRow("no number") << text("abc") << true << 0.f;
    QTest::newRow("infinite") << text("inf") << true << 0.f;
}

void TestRecordModel::editsByValue()
{
    QFETCH(QVariant, value);
    QFETCH(bool, taken);
    QFETCH(float, stored);
    const Sample *sample = append("a", 12.5f);
    m_model->reload();
    const QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
    QCOMPARE(m_model->setData(m_model->index(0, 1), value, Qt::EditRole), taken);
    QCOMPARE(sample->rate, stored);
    QCOMPARE(m_view->isModified(), taken);
    QCOMPARE(changed.count(), 0);
    QVERIFY(!m_model->setData(m_model->index(0, 1), 5, Qt::DisplayRole));
    QVERIFY(m_model->setData(m_model->index(0, 0), QStringLiteral("b"), Qt::EditRole));
    QCOMPARE(sample->name, QStringLiteral("a"));
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

void TestRecordModel::goesByRowWhateverTheIndexCarries()
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
    QTest::newRow("few, one by one") << 8 << 0;
    QTest::newRow("many, in one pass") << 1000 << 1;
}

void TestRecordModel::removesRows()
{
    QFETCH(int, count);
    QFETCH(int, resets);
    const QAbstractItemModelTester tester(m_model.get());
    QVector<int> rows;
    for (int row = 0; row < count; ++row) {
        append(QByteArray::number(row).constData());
        if (row % 2 == 0)
            rows << row;
    }
    m_model->reload();
    const QSignalSpy reset(m_model.get(), &QAbstractItemModel::modelReset);
    m_model->removeRecords(rows);
    QCOMPARE(reset.count(), resets);
    QCOMPARE(m_model->rowCount(), count / 2);
    for (int row = 0; row < count / 2; ++row)
        QCOMPARE(cell(row, 0).toInt(), 2 * row + 1);
}

void TestRecordModel::namesFollowTheList()
{
    const auto listed = [this](const char *name) {
        return m_records->contains(QString::fromLatin1(name));
    };
    append("twice");
    append("twice");
    append("Once");
    m_model->reload();
    QVERIFY(listed("twice") && listed("Once") && !listed("once"));
    append("late");
    QVERIFY(listed("late"));
    m_model->reload();
    QVERIFY(listed("late"));
    m_model->remove(0);
    QVERIFY(listed("twice"));
    m_model->remove(0);
    QVERIFY(!listed("twice") && listed("Once"));
}

QTEST_MAIN(TestRecordModel)
#include "test_recordmodel.moc"
