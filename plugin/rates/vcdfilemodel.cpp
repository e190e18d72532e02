#include "rates/vcdfilemodel.h"

#include "config/plainnumber.h"

#include <QFileInfo>

namespace VLT {

namespace {

using File = VLT_VcdFile;
using FileColumn = Column<File>;

int compareText(const QString &left, const QString &right)
{
    return left.compare(right, Qt::CaseInsensitive);
}

QVariant time(const QString &number, const QString &unit)
{
    return number.isEmpty() ? QVariant() : QVariant(number + QLatin1Char(' ') + unit);
}

/// A column whose cells are centered and have no tool tip.
FileColumn centred(const char *title, QVariant (*shown)(const File &))
{
    return FileColumn::served(title, [shown](const File &file, int role) -> QVariant {
        if (role == Qt::TextAlignmentRole)
            return int(Qt::AlignCenter);
        return role == Qt::DisplayRole ? shown(file) : QVariant();
    });
}

QVariant instanceData(const File &file, int role)
{
    return role == Qt::DisplayRole ? file.entity : QVariant();
}

QVariant fileNameData(const File &file, int role)
{
    switch (role) {
    case Qt::DisplayRole:
        return QFileInfo(file.file).fileName();
    case Qt::ToolTipRole:
        return file.file;
    case Qt::TextAlignmentRole:
        return int(Qt::AlignCenter);
    default:
        return {};
    }
}

QVariant shownType(const File &file)
{
    return file.isVcd ? QStringLiteral("Vcd") : QStringLiteral("Saif");
}

QVariant shownStart(const File &file)
{
    return time(file.startTime, file.timeUnit);
}

QVariant shownEnd(const File &file)
{
    return time(file.endTime, file.timeUnit);
}

} // namespace

VcdFileModel::VcdFileModel(QList<VLT_VcdFile *> &records, QObject *parent)
    : RecordModel(
          nullptr, records, parent,
          {Column::served("Instance", instanceData)
               .refusingEdits()
               .sortedBy(lessThanByInst, greaterThanByInst),
           Column::served("File Name", fileNameData)
               .refusingEdits()
               .sortedBy(lessThanByFile, greaterThanByFile),
           centred("File Type", shownType)
               .refusingEdits()
               .sortedBy(lessThanByFileType, greaterThanByFileType),
           centred(nullptr, shownStart)
               .refusingEdits()
               .sortedBy(lessThanByStart, greaterThanByStart),
           centred(nullptr, shownEnd).refusingEdits().sortedBy(lessThanByEnd, greaterThanByEnd)})
{
}

void VcdFileModel::updateRow(int row)
{
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

bool VcdFileModel::lessThanByInst(File *const &left, File *const &right)
{
    return compareText(left->entity, right->entity) < 0;
}

bool VcdFileModel::greaterThanByInst(File *const &left, File *const &right)
{
    return compareText(left->entity, right->entity) > 0;
}

bool VcdFileModel::lessThanByFile(File *const &left, File *const &right)
{
    return compareText(left->file, right->file) < 0;
}

bool VcdFileModel::greaterThanByFile(File *const &left, File *const &right)
{
    return compareText(left->file, right->file) > 0;
}

bool VcdFileModel::lessThanByFileType(File *const &left, File *const &right)
{
    return left->isVcd && !right->isVcd;
}

bool VcdFileModel::greaterThanByFileType(File *const &left, File *const &right)
{
    return !left->isVcd && right->isVcd;
}

bool VcdFileModel::lessThanByStart(File *const &left, File *const &right)
{
    return numberFromText(left->startTime) < numberFromText(right->startTime);
}

bool VcdFileModel::greaterThanByStart(File *const &left, File *const &right)
{
    return numberFromText(left->startTime) > numberFromText(right->startTime);
}

bool VcdFileModel::lessThanByEnd(File *const &left, File *const &right)
{
    return numberFromText(left->endTime) < numberFromText(right->endTime);
}

bool VcdFileModel::greaterThanByEnd(File *const &left, File *const &right)
{
    return numberFromText(left->endTime) > numberFromText(right->endTime);
}

} // namespace VLT
