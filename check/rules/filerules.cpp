#include "check/rules/rules.h"

#include "config/filenames.h"

namespace Check {

namespace {

using VLT::FileRemark;

/// `attribute "value" of Net`, or the element alone.
QString subject(const FileRemark &remark)
{
    return remark.attribute.isEmpty()
               ? remark.element
               : QStringLiteral("attribute \"%1\" of %2").arg(remark.attribute, remark.element);
}

QString whatOpeningDoes(const FileRemark &remark)
{
    if (remark.used == remark.text)
        return QStringLiteral("the editor keeps it as it is");
    if (remark.used.isEmpty())
        return QStringLiteral("the editor takes it for not set");
    return QStringLiteral("the editor uses %1").arg(remark.used);
}

void addRemark(const FileRemark &remark, Findings *findings)
{
    const auto add = [&](const char *rule, const QString &message) {
        findings->add(rule, remark.line, remark.element, message);
    };
    switch (remark.kind) {
    case FileRemark::UnknownElement:
        add("unknown-element",
            QStringLiteral("unknown element %1: the next save drops it").arg(remark.element));
        break;
    case FileRemark::UnknownAttribute:
        add("unknown-element",
            QStringLiteral("unknown %1: the next save drops it").arg(subject(remark)));
        break;
    case FileRemark::RepeatedElement:
        add("unknown-element", QStringLiteral("%1 is repeated: only the first one counts, and the "
                                              "next save drops this one")
                                   .arg(remark.element));
        break;
    case FileRemark::MissingAttribute:
        if (remark.element == VLT::NODE_GLOBAL_ENABLE)
            add("clock-value-missing",
                QStringLiteral("%1 has no \"value\": the editor reads 0").arg(remark.element));
        break;
    case FileRemark::NotANumber:
        add("not-a-number", QStringLiteral("%1: \"%2\" is not a number; %3")
                                .arg(subject(remark), remark.text, whatOpeningDoes(remark)));
        break;
    case FileRemark::OutOfRange:
        add("out-of-range", QStringLiteral("%1: %2 is out of range; %3")
                                .arg(subject(remark), remark.text, whatOpeningDoes(remark)));
        break;
    case FileRemark::UnknownChoice:
        add("out-of-range",
            QStringLiteral("%1: unknown choice \"%2\"; %3")
                .arg(subject(remark), remark.text,
                     remark.used.isEmpty() ? QStringLiteral("the editor keeps its default")
                                           : whatOpeningDoes(remark)));
        break;
    }
}

} // namespace

void checkFile(const ConfigurationInput &input, Findings *findings)
{
    for (const FileRemark &remark : input.report.remarks)
        addRemark(remark, findings);
}

} // namespace Check
