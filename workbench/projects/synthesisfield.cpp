#include "workbench/projects/synthesisfield.h"

#include "workbench/projects/argumentline.h"
#include "workbench/projects/synthesistemplate.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include <iterator>

namespace Workbench {

namespace {

constexpr int VISIBLE_LINES = 4;
constexpr int NONE = 0;
constexpr int FIRST_TEMPLATE = 1;
constexpr int OWN = FIRST_TEMPLATE + int(std::size(SYNTHESIS_TEMPLATES));

} // namespace

SynthesisField::SynthesisField(QWidget *parent)
    : QWidget(parent)
    , m_choice(new QComboBox)
    , m_editor(new QPlainTextEdit)
{
    m_choice->setObjectName(QStringLiteral("synthesisTemplate"));
    m_choice->addItem(tr("None: the netlist is made elsewhere"));
    for (const SynthesisTemplate &base : SYNTHESIS_TEMPLATES)
        m_choice->addItem(tr("%1, by Yosys").arg(tr(base.title)));
    m_choice->addItem(tr("Own command, for example make"));
    m_editor->setObjectName(QStringLiteral("synthesisCommand"));
    m_editor->setAccessibleName(tr("Synthesis command"));
    m_editor->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_editor->setTabChangesFocus(true);
    m_editor->setPlaceholderText(tr("No command: Run synthesis is not available."));
    m_editor->setToolTip(tr("Runs in the project's folder, without a shell. Quotes keep words "
                            "together."));
    const QMargins margins = m_editor->contentsMargins();
    m_editor->setFixedHeight(m_editor->fontMetrics().lineSpacing() * VISIBLE_LINES +
                             2 * int(m_editor->document()->documentMargin()) + margins.top() +
                             margins.bottom() + 2 * m_editor->frameWidth());
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(fontMetrics().height() / 3);
    layout->addWidget(m_choice);
    layout->addWidget(m_editor);
    connect(m_choice, qOverload<int>(&QComboBox::activated), this, &SynthesisField::onChosen);
    connect(m_editor, &QPlainTextEdit::textChanged, this, &SynthesisField::onTyped);
}

QWidget *SynthesisField::choice() const
{
    return m_choice;
}

QWidget *SynthesisField::editor() const
{
    return m_editor;
}

bool SynthesisField::isTemplate() const
{
    return m_choice->currentIndex() != NONE && m_choice->currentIndex() != OWN;
}

void SynthesisField::setSettings(const ProjectSettings &settings)
{
    m_settings = settings;
    const int base = templateOf(settings);
    if (base >= 0)
        m_choice->setCurrentIndex(FIRST_TEMPLATE + base);
    else
        m_choice->setCurrentIndex(settings.command.isEmpty() ? NONE : OWN);
    const QScopedValueRollback<bool> filling(m_filling, true);
    m_editor->setPlainText(joinArguments(settings.command));
}

void SynthesisField::follow(const ProjectSettings &settings)
{
    m_settings = settings;
    if (isTemplate())
        fill();
}

void SynthesisField::propose(const char *command)
{
    for (int i = 0; !m_chosen && i < int(std::size(SYNTHESIS_TEMPLATES)); ++i) {
        if (qstrcmp(SYNTHESIS_TEMPLATES[i].command, command) == 0)
            m_choice->setCurrentIndex(FIRST_TEMPLATE + i);
    }
    if (!m_chosen)
        fill();
}

bool SynthesisField::command(QStringList *command) const
{
    return splitArguments(m_editor->toPlainText(), command);
}

void SynthesisField::onChosen()
{
    m_chosen = true;
    emit edited();
    if (m_choice->currentIndex() != OWN)
        return fill();
    m_editor->setFocus();
    m_editor->selectAll();
}

void SynthesisField::onTyped()
{
    if (m_filling)
        return;
    m_chosen = true;
    m_choice->setCurrentIndex(m_editor->toPlainText().trimmed().isEmpty() ? NONE : OWN);
    emit edited();
}

void SynthesisField::fill()
{
    const QScopedValueRollback<bool> filling(m_filling, true);
    const int base = m_choice->currentIndex() - FIRST_TEMPLATE;
    m_editor->setPlainText(isTemplate()
                               ? joinArguments(commandFrom(SYNTHESIS_TEMPLATES[base], m_settings))
                               : QString());
}

} // namespace Workbench
