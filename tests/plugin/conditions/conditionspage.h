#pragma once

#include "conditions/vltcommonwidget.h"
#include "document/vltview.h"
#include "frame/vltviewmanager.h"
#include "support/testhost.h"
#include "support/vlrschema.h"

#include <QtWidgets>

/// A view on a file that holds `elements`, and the widgets of its first page by their names.
class ConditionsPage
{
public:
    explicit ConditionsPage(const TestHost &host, const QByteArray &elements = QByteArray())
        : m_host(host)
    {
        VLT::VLTViewManager::openView(
            host.device(),
            host.write(QStringLiteral("a.vlr"),
                       "<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG><Config>" + elements + "</Config>"));
        view = VLT::VLTViewManager::vltViews().value(0);
        if (!view)
            qFatal("the file does not open");
        page = view->findChild<VLT::VLTSettingWidget *>();
    }

    template<typename Widget>
    Widget *find(const char *name) const
    {
        auto *widget = page->findChild<Widget *>(QString::fromLatin1(name));
        if (!widget)
            qFatal("no widget %s", name);
        return widget;
    }
    QDoubleSpinBox *spin(const char *name) const { return find<QDoubleSpinBox>(name); }
    QComboBox *combo(const char *name) const { return find<QComboBox>(name); }
    QAbstractButton *button(const char *name) const { return find<QAbstractButton>(name); }

    /// Of the `names`, those that are enabled within the page.
    QString enabled(const QByteArray &names) const
    {
        QByteArrayList result = names.split(' ');
        result.erase(std::remove_if(result.begin(), result.end(),
                                    [this](const QByteArray &name) {
                                        return !find<QWidget>(name)->isEnabledTo(page);
                                    }),
                     result.end());
        return QString::fromLatin1(result.join(' '));
    }

    /// Saves, and gives the page's section of the file, "name=text" for each element; or what is
    /// wrong with the file by its schema.
    QString saved() const
    {
        QString text;
        view->setModified(true);
        if (!view->save())
            return QStringLiteral("not saved");
        const QByteArray bytes = m_host.read(QStringLiteral("a.vlr"));
        const QByteArray errors = schemaErrors(bytes);
        if (!errors.isEmpty())
            return QString::fromUtf8(errors);
        const QStringList lines = QString::fromUtf8(bytes).split(QLatin1Char('\n'));
        static const QRegularExpression element(QStringLiteral("^    <(\\w+)>([^<]*)</"));
        for (const QString &line : lines) {
            const auto match = element.match(line);
            if (match.hasMatch() && match.captured(1) != QLatin1String("Version"))
                text += match.captured(1) + QLatin1Char('=') + match.captured(2) + QLatin1Char(' ');
        }
        return text.trimmed();
    }

    VLT::VLTView *view = nullptr;
    VLT::VLTSettingWidget *page = nullptr;

private:
    const TestHost &m_host;
};
