#include "config/fileremarks.h"

#include "config/filenames.h"
#include "config/filerules.h"
#include "config/plainnumber.h"

#include <QDomElement>

#include <algorithm>
#include <cmath>
#include <vector>

namespace VLT {

namespace {

/// Checks a file against the rules.
class Comparison
{
public:
    explicit Comparison(QHash<QString, int> *lines)
        : m_lines(lines)
    {
    }

    QVector<FileRemark> remarks;

    void checkElement(const QDomElement &element, const ElementRule &rule)
    {
        if (!rule.isRecord)
            m_lines->insert(element.tagName(), element.lineNumber());
        checkAttributes(element, rule);
        if (rule.text.kind != TextRule::Free)
            checkText(element, QString(), element.text(), rule.text);
        checkChildren(element, rule.children);
    }

private:
    void add(FileRemark::Kind kind, const QDomElement &element, const QString &attribute = {},
             const QString &text = {}, const QString &used = {})
    {
        remarks.append({kind, element.lineNumber(), element.tagName(), attribute, text, used});
    }

    void checkChildren(const QDomElement &element, const std::vector<ElementRule> &rules)
    {
        std::vector<bool> seen(rules.size());
        for (QDomElement child = element.firstChildElement(); !child.isNull();
             child = child.nextSiblingElement()) {
            const auto rule =
                std::find_if(rules.begin(), rules.end(), [&child](const ElementRule &candidate) {
                    return candidate.name == child.tagName();
                });
            const auto place = size_t(rule - rules.begin());
            if (rule == rules.end()) {
                add(FileRemark::UnknownElement, child);
            } else if (seen[place] && !rule->isRecord) {
                add(FileRemark::RepeatedElement, child);
            } else {
                seen[place] = true;
                checkElement(child, *rule);
            }
        }
    }

    void checkAttributes(const QDomElement &element, const ElementRule &rule)
    {
        int known = 0;
        for (const AttributeRule &attribute : rule.attributes) {
            if (element.hasAttribute(attribute.name)) {
                ++known;
                checkText(element, attribute.name, element.attribute(attribute.name),
                          attribute.text);
            } else if (!attribute.mayMiss) {
                add(FileRemark::MissingAttribute, element, attribute.name, {}, attribute.missing);
            }
        }
        const QDomNamedNodeMap all = element.attributes();
        for (int i = 0; i < all.count() && all.count() > known; ++i) {
            const QDomAttr attribute = all.item(i).toAttr();
            const auto hasName = [&attribute](const AttributeRule &candidate) {
                return candidate.name == attribute.name();
            };
            if (std::none_of(rule.attributes.begin(), rule.attributes.end(), hasName))
                add(FileRemark::UnknownAttribute, element, attribute.name(), attribute.value());
        }
    }

    void checkText(const QDomElement &element, const QString &attribute, const QString &text,
                   const TextRule &rule)
    {
        switch (rule.kind) {
        case TextRule::Free:
            break;
        case TextRule::Choice:
            if (!rule.choices.contains(text, Qt::CaseInsensitive))
                add(FileRemark::UnknownChoice, element, attribute, text, rule.choices.first());
            break;
        case TextRule::Exactly:
        case TextRule::Button:
            if (!rule.choices.contains(text))
                add(FileRemark::UnknownChoice, element, attribute, text,
                    rule.kind == TextRule::Button ? QString() : rule.choices.last());
            break;
        default:
            if (!(rule.kind == TextRule::Theta && text == THETA_NOT_GIVEN) &&
                !(rule.kind == TextRule::Typed && text.isEmpty()))
                checkNumber(element, attribute, text, rule);
        }
    }

    void checkNumber(const QDomElement &element, const QString &attribute, const QString &text,
                     const TextRule &rule)
    {
        bool isNumber = false;
        double number = 0;
        if (rule.kind == TextRule::Code)
            number = text.toInt(&isNumber);
        else if (rule.kind == TextRule::Cell)
            number = double(text.toFloat(&isNumber));
        else
            number = text.toDouble(&isNumber);
        isNumber = isNumber && std::isfinite(number);
        if (!isNumber)
            number = 0;
        const double limited = qBound(rule.range.minimum, number, rule.range.maximum);
        QString used = text;
        if (rule.kind == TextRule::Field || rule.kind == TextRule::Theta)
            used = numberText(limited);
        else if (!isNumber && rule.kind != TextRule::Typed)
            used = QStringLiteral("0");
        else if (rule.kind == TextRule::Cell && number < 0)
            used.clear();
        if (!isNumber)
            add(FileRemark::NotANumber, element, attribute, text, used);
        else if (rule.kind != TextRule::Typed && number != limited && !isUnset(text, rule))
            add(FileRemark::OutOfRange, element, attribute, text, used);
    }

    /// Whether the text is the number that means "not set", in any spelling.
    static bool isUnset(const QString &text, const TextRule &rule)
    {
        return rule.kind == TextRule::Cell && text == QLatin1String("-1");
    }

    QHash<QString, int> *m_lines;
};

} // namespace

QVector<FileRemark> remarksOn(const QDomElement &root, QHash<QString, int> *lines)
{
    Comparison comparison(lines);
    const QString grade = root.firstChildElement(NODE_TEMP_GRADE).text();
    comparison.checkElement(root, fileRules(grade));
    return comparison.remarks;
}

} // namespace VLT
