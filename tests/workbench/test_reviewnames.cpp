#include "windowtest.h"

#include "support/modaldriver.h"
#include "support/netlistjson.h"

#include "core/iview.h"
#include "host/core/ifileopener.h"

#include <QtTest>
#include <QtWidgets>

namespace {

QByteArray flipFlops(const QByteArrayList &names)
{
    QByteArray records;
    for (const QByteArray &name : names)
        records += "<Instance name=\"" + name + "\" value=\"5\"/>\n";
    return QByteArray(EmptyFile).replace("<Config/>", "<Config>\n<LocalEnable>\n" + records +
                                                          "</LocalEnable>\n</Config>");
}

/// The parts of the open review.
struct Review
{
    explicit Review(QWidget *dialog)
        : tree(dialog->findChild<QTreeWidget *>(QStringLiteral("reviewTree")))
        , state(dialog->findChild<QLabel *>(QStringLiteral("reviewState")))
        , changes(dialog->findChild<QPlainTextEdit *>(QStringLiteral("reviewChanges")))
        , apply(dialog->findChild<QPushButton *>(QStringLiteral("applyReview")))
    {
    }

    /// "[x] name > target" per row.
    QString rows() const
    {
        QStringList rows;
        for (int i = 0; i < tree->topLevelItemCount(); ++i) {
            const QTreeWidgetItem *item = tree->topLevelItem(i);
            rows += QStringLiteral("[%1] %2 > %3")
                        .arg(QLatin1String(item->checkState(0) == Qt::Checked ? "x" : " "),
                             item->text(0), item->text(1));
        }
        return rows.join(QLatin1String("; "));
    }

    /// Double-clicks the row's new name and types another.
    void type(int row, const QString &text) const
    {
        const QPoint at = tree->visualItemRect(tree->topLevelItem(row)).center();
        const QPoint cell(tree->columnViewportPosition(1) + 10, at.y());
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, cell);
        QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, cell);
        auto *editor = tree->viewport()->findChild<QLineEdit *>();
        QVERIFY(editor);
        editor->selectAll();
        QTest::keyClick(editor, Qt::Key_Delete);
        QTest::keyClicks(editor, text);
        if (!text.isEmpty())
            QTRY_VERIFY(editor->completer()->completionCount() > 0);
        QTest::keyClick(editor, Qt::Key_Return);
    }

    QTreeWidget *tree;
    QLabel *state;
    QPlainTextEdit *changes;
    QPushButton *apply;
};

} // namespace

class TestReviewNames : public WindowTest
{
    Q_OBJECT

private slots:
    void mendsNames();
    void refusesConflicts();
    void groupsAreOneRow();
    void saysWhyItCannot();

private:
    /// Records what the names mean now.
    void record(Core::IView *view)
    {
        view->findChild<QTabWidget *>()->setCurrentIndex(0);
        QTest::keyClick(view->findChild<QDoubleSpinBox *>(QStringLiteral("spinAmbTemp")),
                        Qt::Key_Up);
        QTest::keyClick(&window(), Qt::Key_S, Qt::ControlModifier);
        QTRY_VERIFY(m_host->read(QStringLiteral("a.vlr.names")).contains("q_reg0"));
    }
    void swapFlipFlops()
    {
        QByteArray swapped = TestHost::defaultNetlist();
        swapped.replace("q_reg0", "other").replace("q_reg1", "q_reg0").replace("other", "q_reg1");
        m_host->useNetlist(swapped);
        m_host->finishSynthesis();
    }
};

void TestReviewNames::mendsNames()
{
    Core::IView *view =
        openView(QStringLiteral("a.vlr"), flipFlops({"q_reg0", "core/state_reg", "gone"}));
    record(view);
    swapFlipFlops();
    // A modified view is saved first.
    QTest::keyClick(view->findChild<QDoubleSpinBox *>(QStringLiteral("spinAmbTemp")), Qt::Key_Up);
    QVERIFY(view->windowTitle().endsWith(QLatin1Char('*')));
    const QPointer<Core::IView> before(view);
    {
        ModalDriver question(pressButton(QMessageBox::Cancel));
        action("reviewNames")->trigger();
    }
    QVERIFY(view->windowTitle().endsWith(QLatin1Char('*')));
    std::unique_ptr<ModalDriver> inner;
    ModalDriver question([this, &inner](QWidget *box) {
        // The review opens when the question is answered.
        inner = std::make_unique<ModalDriver>([this](QWidget *dialog) {
            const Review review(dialog);
            QTRY_COMPARE(review.rows(), QStringLiteral("[x] q_reg0 > q_reg1; "
                                                       "[ ] gone > remove the record"));
            QTRY_VERIFY(review.apply->isEnabled());
            QVERIFY(review.changes->toPlainText().contains(
                QLatin1String("\"q_reg0\" becomes \"q_reg1\"")));
            QVERIFY(!review.changes->toPlainText().contains(QLatin1String("gone")));
            QVERIFY(m_host->read(QStringLiteral("a.vlr")).contains("\"q_reg0\""));
            // With the keyboard, too.
            review.tree->setCurrentItem(review.tree->topLevelItem(1));
            QTest::keyClick(review.tree, Qt::Key_Space);
            QTRY_VERIFY(
                review.changes->toPlainText().contains(QLatin1String("\"gone\" is removed")));
            QTRY_VERIFY(review.apply->isEnabled());
            QTest::mouseClick(review.apply, Qt::LeftButton);
        });
        pressButton(QMessageBox::Save)(box);
    });
    action("reviewNames")->trigger();
    const QByteArray file = m_host->read(QStringLiteral("a.vlr"));
    QVERIFY2(file.contains("\"q_reg1\"") && !file.contains("\"q_reg0\"") && !file.contains("gone"),
             file);
    const QByteArray memory = m_host->read(QStringLiteral("a.vlr.names"));
    QVERIFY2(memory.contains("\"name\":\"q_reg1\",\"names\":[\"q[0]\"]"), memory);
    // The view shows the new file, and nobody asks about it.
    const QString path = m_host->path(QStringLiteral("a.vlr"));
    QTRY_VERIFY(!before);
    QVERIFY(Core::IFileOpener::forFile(path)->view(path));
    QVERIFY(!Core::IFileOpener::forFile(path)->isModified(path));
    auto *findings = window().findChild<QTreeView *>(QStringLiteral("findings"));
    QTRY_COMPARE(findings->model()->rowCount(), 0);
}

void TestReviewNames::refusesConflicts()
{
    record(openView(QStringLiteral("a.vlr"), flipFlops({"q_reg0", "core/state_reg", "gone"})));
    swapFlipFlops();
    const QByteArray file = m_host->read(QStringLiteral("a.vlr"));
    {
        ModalDriver driver([](QWidget *dialog) {
            const Review review(dialog);
            QTRY_VERIFY(review.apply->isEnabled());
            // A name that another record has; one that is not there; its own, which accepts it.
            review.type(0, QStringLiteral("core/state_reg"));
            QTRY_VERIFY(review.state->text().contains(QLatin1String("more than one name")));
            QVERIFY(!review.apply->isEnabled());
            review.type(0, QStringLiteral("q_reg0"));
            QTRY_VERIFY(review.apply->isEnabled());
            QCOMPARE(review.rows(), QStringLiteral("[x] q_reg0 > keep, as what it means now; "
                                                   "[ ] gone > remove the record"));
            QTest::mouseClick(review.apply, Qt::LeftButton);
        });
        action("reviewNames")->trigger();
    }
    // The file has not changed, only what the name means.
    QCOMPARE(m_host->read(QStringLiteral("a.vlr")), file);
    QVERIFY(m_host->read(QStringLiteral("a.vlr.names"))
                .contains("\"name\":\"q_reg0\",\"names\":[\"q[1]\"]"));
    auto *findings = window().findChild<QTreeView *>(QStringLiteral("findings"));
    QTRY_COMPARE(findings->model()->rowCount(), 1);
}

void TestReviewNames::groupsAreOneRow()
{
    NetlistJson json;
    auto &unit =
        json.module("unit").port("c", "input", {2}).port("d", "input", {3}).net("q", {4, 5});
    for (const auto &[name, bit] : {std::pair("a", 4), std::pair("b", 5)})
        unit.cell(name, "$_DFF_P_",
                  {{"C", "input", {2}}, {"D", "input", {3}}, {"Q", "output", {bit}}});
    json.module("top")
        .top()
        .port("c", "input", {2})
        .port("d", "input", {3})
        .cell("new", "unit", {{"c", "input", {2}}, {"d", "input", {3}}});
    m_host->useNetlist(json.toUtf8());
    openView(QStringLiteral("a.vlr"), flipFlops({"old/a", "old/b"}));
    ModalDriver driver([](QWidget *dialog) {
        const Review review(dialog);
        QTRY_COMPARE(review.tree->topLevelItemCount(), 1);
        QTreeWidgetItem *group = review.tree->topLevelItem(0);
        QCOMPARE(group->childCount(), 2);
        QCOMPARE(group->child(1)->text(1), QStringLiteral("new/b"));
        QCOMPARE(group->text(2), QStringLiteral("likely"));
        QVERIFY(group->checkState(0) == Qt::Unchecked && !review.apply->isEnabled());
        review.tree->setCurrentItem(group);
        QTest::keyClick(review.tree, Qt::Key_Space);
        QTRY_VERIFY(review.apply->isEnabled());
        QTest::mouseClick(review.apply, Qt::LeftButton);
    });
    action("reviewNames")->trigger();
    const QByteArray file = m_host->read(QStringLiteral("a.vlr"));
    QVERIFY2(file.contains("\"new/a\"") && file.contains("\"new/b\""), file);
}

void TestReviewNames::saysWhyItCannot()
{
    openView(QStringLiteral("a.vlr"), flipFlops({"q_reg0"}));
    m_host->write(QStringLiteral("a.vlr.names"), "<<<<<<< ours");
    ModalDriver driver([](QWidget *dialog) {
        const Review review(dialog);
        QTRY_VERIFY(review.state->text().contains(QLatin1String("cannot be reviewed")));
        QVERIFY(!review.apply->isEnabled());
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    action("reviewNames")->trigger();
    QCOMPARE(m_host->read(QStringLiteral("a.vlr.names")), QByteArray("<<<<<<< ours"));
}

QTEST_MAIN(TestReviewNames)
#include "test_reviewnames.moc"
