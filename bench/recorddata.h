#pragma once

#include <QByteArray>
#include <QStringList>

// Configuration files made for the measurements.

/// A file whose only records are flip-flops of these names, without values.
QByteArray flipFlopFile(const QStringList &names);

/// A file of `count` records spread evenly over the six sections that hold records. Saving looks
/// for the activity files: all records name `activity`.
QByteArray mixedFile(int count, const QString &activity);

/// A file of about `count` records for a netlist that writeNetlist() made with `cells` cells, as
/// after a change of the sources: of five names one is no longer in the netlist, half of these
/// since an instance was renamed and half since synthesis has numbered the cells anew.
QByteArray designFile(int count, int cells);

/// Copies a document token by token: what writing the same elements costs at least.
class TokenCopy
{
public:
    explicit TokenCopy(const QByteArray &document);
    bool writeTo(const QString &path) const;

private:
    struct Token
    {
        enum Kind { Start, Text, End } kind;
        QString text;
        QVector<QPair<QString, QString>> attributes;
    };
    QVector<Token> m_tokens;
};
