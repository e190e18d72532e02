#pragma once

#include <QString>
#include <QVariant>
#include <QVariantMap>

namespace QUtil {

/// An event of the environment: the name of its type and named values.
class IEvent
{
public:
    explicit IEvent(const QString &type, const QVariantMap &values = QVariantMap())
        : m_type(type)
        , m_values(values)
    {
    }

    QString type() const { return m_type; }
    const QVariantMap &values() const { return m_values; }

    /// The value called `name`; an invalid variant if the event has none.
    QVariant value(const QString &name) const { return m_values.value(name); }

private:
    QString m_type;
    QVariantMap m_values;
};

} // namespace QUtil
