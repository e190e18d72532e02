#include "rates/vcdfilesetdialog.h"

#include "config/activityfile.h"
#include "config/plainnumber.h"
#include "config/records.h"
#include "rates/moduleinstselectdialog.h"
#include "tables/document.h"
#include "ui_vcdfilesetdialog.h"
#include "widgets/plainmessage.h"

#include "nlsdata/netlist.h"
#include "utils/fileutils.h"

#include <QDir>
#include <QPointer>
#include <QRegExpValidator>

namespace VLT {

namespace {

/// Replaces a decimal comma by a point, because times are stored with one.
class TimeValidator : public QRegExpValidator
{
public:
    explicit TimeValidator(QObject *parent)
        : QRegExpValidator(
              QRegExp(QStringLiteral("^([0]|([1-9][0-9]{0,8}))(\\.\\d{1,3})?$"), Qt::CaseSensitive),
              parent)
    {
    }

    State validate(QString &input, int &position) const override
    {
        input.replace(QLatin1Char(','), QLatin1Char('.'));
        return QRegExpValidator::validate(input, position);
    }
};

/// The time of a field, without a trailing point whose decimals were not typed.
QString finishedTime(const QLineEdit *field)
{
    const QString text = field->text();
    return text.endsWith(QLatin1Char('.')) ? text.chopped(1) : text;
}

} // namespace

VcdFileSetDialog::VcdFileSetDialog(VLTView *view, QWidget *parent, VLT_VcdFile *record)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::VcdFileSetDialog>())
    , m_document(documentOf(view))
    , m_record(record)
    , m_designName(currentDesign())
{
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto *validator = new TimeValidator(this);
    m_ui->editStartTime->setValidator(validator);
    m_ui->editEndTime->setValidator(validator);
    connect(m_ui->btnSelectFile, &QToolButton::clicked, this, &VcdFileSetDialog::onBtnSelectFile);
    connect(m_ui->btnSelectInstance, &QToolButton::clicked, this,
            &VcdFileSetDialog::onBtnSelectInstance);
    connect(m_ui->radioVcd, &QRadioButton::toggled, this, &VcdFileSetDialog::onTypeChanged);
    if (m_record)
        showRecord();
}

VcdFileSetDialog::~VcdFileSetDialog() = default;

void VcdFileSetDialog::showRecord()
{
    m_ui->editFile->setText(m_record->file);
    m_ui->editInstance->setText(m_record->entity);
    if (!m_record->isVcd) {
        m_ui->radioSaif->setChecked(true);
        return;
    }
    m_ui->radioVcd->setChecked(true);
    const int unit = m_ui->comboTimeUnit->findText(m_record->timeUnit,
                                                   Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (unit >= 0)
        m_ui->comboTimeUnit->setCurrentIndex(unit);
    m_ui->editStartTime->setText(m_record->startTime);
    m_ui->editEndTime->setText(m_record->endTime);
}

void VcdFileSetDialog::onBtnSelectFile()
{
    const QPointer<VcdFileSetDialog> self(this);
    const QString path = Utils::FileUtils::getOpenFileName(this, tr("Select VCD File"), QString(),
                                                           QStringLiteral("*.vcd *.saif"));
    if (self && !path.isEmpty())
        m_ui->editFile->setText(QDir::toNativeSeparators(path));
}

void VcdFileSetDialog::onBtnSelectInstance()
{
    const QPointer<VcdFileSetDialog> self(this);
    const QString design = currentDesign();
    const QPointer<ModuleInstSelectDialog> dialog =
        new ModuleInstSelectDialog(this, m_document->getNetlist(), true);
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!self || !dialog)
        return;
    const QStringList selected = dialog->getSelected();
    if (accepted && !selected.isEmpty()) {
        m_ui->editInstance->setText(selected.first());
        m_designName = design;
    }
    delete dialog;
}

QString VcdFileSetDialog::currentDesign() const
{
    const NlsData::Netlist *netlist = m_document->getNetlist();
    return netlist ? netlist->name() : QString();
}

void VcdFileSetDialog::onTypeChanged()
{
    m_ui->groupTime->setEnabled(m_ui->radioVcd->isChecked());
}

void VcdFileSetDialog::accept()
{
    const QString file = m_ui->editFile->text().trimmed();
    if (!checkFile(file))
        return;
    const QString instance = m_ui->editInstance->text();
    if (instance.isEmpty()) {
        refuse(tr("Module instance name is empty. Please select instance."));
        return;
    }
    const bool isVcd = m_ui->radioVcd->isChecked();
    const QString start = isVcd ? finishedTime(m_ui->editStartTime) : QString();
    const QString end = isVcd ? finishedTime(m_ui->editEndTime) : QString();
    if (!checkTimes(start, end))
        return;

    if (!m_record)
        m_record = new VLT_VcdFile;
    m_record->file = file;
    m_record->entity = instance;
    m_record->isVcd = isVcd;
    m_record->startTime = start;
    m_record->endTime = end;
    m_record->timeUnit = m_ui->comboTimeUnit->currentText();
    QDialog::accept();
}

/// Callers return at once: the dialog may have been deleted in the meantime.
bool VcdFileSetDialog::refuse(const QString &text)
{
    showMessage(QMessageBox::Warning, this, tr("Warning"), text);
    return false;
}

bool VcdFileSetDialog::checkFile(const QString &path)
{
    if (path.isEmpty())
        return refuse(tr("No vcd file. Please select vcd file."));
    if (!isActivityFile(path))
        return refuse(tr("Vcd file '%1' doesn't exist.").arg(QDir::toNativeSeparators(path)));
    return true;
}

bool VcdFileSetDialog::checkTimes(const QString &start, const QString &end)
{
    if (end.isEmpty())
        return true;
    const double endTime = numberFromText(end);
    if (endTime == 0.0)
        return refuse(tr("End time value cannot be 0."));
    if (endTime <= (start.isEmpty() ? -1.0 : numberFromText(start)))
        return refuse(tr("End time value must be greater than start time value."));
    return true;
}

} // namespace VLT
