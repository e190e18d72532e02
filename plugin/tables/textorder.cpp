#include "tables/textorder.h"

#include <algorithm>
#include <numeric>

namespace VLT {

namespace {

/// Sorts `elements` stably by `compare`, which is negative, zero or positive like QString::compare.
template<class Element, class Compare>
void sortStably(std::vector<Element> *elements, Qt::SortOrder order, Compare compare)
{
    const bool ascending = order == Qt::AscendingOrder;
    std::stable_sort(elements->begin(), elements->end(), [&](const Element &a, const Element &b) {
        return ascending ? compare(a, b) < 0 : compare(a, b) > 0;
    });
}

struct Folded
{
    QStringView text;
    int place;
};

/// Appends `text` with every letter folded to `folded`; false for a text whose letters do not fold
/// one by one.
bool appendFolded(const QString &text, std::u16string *folded)
{
    for (const QChar letter : text) {
        if (letter.isSurrogate())
            return false;
        folded->push_back(letter.toCaseFolded().unicode());
    }
    return true;
}

} // namespace

std::vector<int> textOrder(const std::vector<const QString *> &texts, Qt::SortOrder order)
{
    const auto addSize = [](size_t sum, const QString *text) { return sum + size_t(text->size()); };
    std::u16string folded; // all texts; reserved, since the views below point into it
    folded.reserve(std::accumulate(texts.begin(), texts.end(), size_t(0), addSize));
    std::vector<Folded> keys;
    keys.reserve(texts.size());
    for (const QString *text : texts) {
        const char16_t *begin = folded.data() + folded.size();
        if (!appendFolded(*text, &folded))
            break;
        keys.push_back({QStringView(begin, text->size()), int(keys.size())});
    }

    std::vector<int> places(texts.size());
    if (keys.size() < texts.size()) {
        std::iota(places.begin(), places.end(), 0);
        sortStably(&places, order, [&](int a, int b) {
            return texts[size_t(a)]->compare(*texts[size_t(b)], Qt::CaseInsensitive);
        });
        return places;
    }
    sortStably(&keys, order,
               [](const Folded &a, const Folded &b) { return a.text.compare(b.text); });
    std::transform(keys.begin(), keys.end(), places.begin(),
                   [](const Folded &key) { return key.place; });
    return places;
}

} // namespace VLT
