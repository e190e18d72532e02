#include "designdata.h"
#include "measure.h"
#include "suite.h"
#include "works.h"

#include "nlsdata/findnetdialog.h"
#include "nlsdata/netlist.h"
#include "nlsdata/netlistreader.h"
#include "rates/moduleinstselectdialog.h"
#include "tables/nlsdatafinderdialog.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegExp>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <memory>

namespace {

/// The flip-flop finder as the user sees it, with the filter typed in.
class Finder
{
public:
    Finder(NlsData::Netlist *netlist, const QString &pattern)
        : m_dialog(nullptr, netlist, VLT::NlsDataFinderDialog::FindType(5))
        , m_list(m_dialog.findChild<QListWidget *>(QStringLiteral("listWidget")))
    {
        paint(&m_dialog);
        auto *filter = m_dialog.findChild<QLineEdit *>(QStringLiteral("lineEditFilter"));
        filter->selectAll();
        QTest::keyClicks(filter, pattern);
    }

    /// From the click on "Search" until the list is on the screen.
    double search()
    {
        const QList<QPushButton *> buttons = m_dialog.findChildren<QPushButton *>();
        for (QPushButton *button : buttons) {
            if (button->text() == QLatin1String("Search"))
                return seconds([&] {
                    QTest::mouseClick(button, Qt::LeftButton);
                    paint(m_list->viewport());
                });
        }
        qFatal("the finder has no search button");
    }

    int count() const { return m_list->count(); }

private:
    VLT::NlsDataFinderDialog m_dialog;
    QListWidget *const m_list;
};

double fillBareList(const QStringList &names)
{
    QListWidget list;
    list.setUniformItemSizes(true);
    return seconds([&] {
        list.addItems(names);
        list.show();
        paint(list.viewport());
    });
}

double matchAll(const QStringList &names, const QString &pattern, int expected)
{
    const QRegExp matcher(pattern, Qt::CaseInsensitive, QRegExp::WildcardUnix);
    int count = 0;
    const double time = seconds([&] {
        for (const QString &name : names)
            count += matcher.exactMatch(name) ? 1 : 0;
    });
    if (count != expected)
        qFatal("the floor found %d objects, the finder %d", count, expected);
    return time;
}

/// From asking for the nets of a design to the picker on the screen.
double openNetPicker(const NlsData::Netlist &netlist)
{
    return seconds([&] {
        QTimer::singleShot(0, [] {
            auto *picker = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            paint(picker);
            picker->reject();
        });
        NlsData::FindNetDialog::getList(netlist.netMap().values(), nullptr);
    });
}

/// From the construction of the dialog until it lists every instance.
double openInstanceDialog(NlsData::Netlist *netlist)
{
    return seconds([&] {
        VLT::ModuleInstSelectDialog dialog(nullptr, netlist, true);
        auto *list = dialog.findChild<QListWidget *>();
        paint(&dialog);
        const int all = netlist->instances().size() + 1;
        if (!QTest::qWaitFor([&] { return list->count() == all; }, 60000))
            qFatal("the dialog does not list all instances");
    });
}

} // namespace

void finderWork(Suite &suite)
{
    const QTemporaryDir folder;
    const int objects = suite.scaled(1000000);
    const QString file = folder.filePath(QStringLiteral("design.json"));
    const QStringList names = registerNames(objects);
    writeFlipFlops(file, names);
    const std::unique_ptr<NlsData::Netlist> netlist(NlsData::readNetlistFile(file, nullptr, false));

    const auto search = [&](const QString &pattern, int *found) {
        Finder finder(netlist.get(), pattern);
        const double time = finder.search();
        *found = finder.count();
        return time;
    };

    const auto fresh = [&file] {
        return std::unique_ptr<NlsData::Netlist>(NlsData::readNetlistFile(file, nullptr, false));
    };
    const auto bareList = [&names] { return fillBareList(names); };
    suite.compare(
        QStringLiteral("net picker, %1 nets, first use until shown").arg(objects), bareList,
        [&] { return openNetPicker(*fresh()); }, 5);
    suite.compare(
        QStringLiteral("instance dialog, %1 instances, first use until complete").arg(objects),
        bareList, [&] { return openInstanceDialog(fresh().get()); }, 8);

    int found = 0;
    const QString everything = QStringLiteral("*");
    suite.compare(
        QStringLiteral("finder, %1 objects, pattern * until shown").arg(objects), bareList,
        [&] { return search(everything, &found); }, 1.8);
    if (found != objects)
        qFatal("the finder lists %d of %d objects", found, objects);

    const QString some = QStringLiteral("*cpu7*reg_99*");
    search(some, &found);
    suite.compare(
        QStringLiteral("finder, %1 objects, pattern %2").arg(QString::number(objects), some),
        [&] { return matchAll(names, some, found); }, [&] { return search(some, &found); }, 0.3);
}
