#pragma once

#include <QHash>
#include <QList>
#include <QString>

#include <vector>

namespace Check {

/// Finds objects by their paths, with eight to sixteen bytes for each. They are borrowed.
template<class Object>
class PathTable
{
public:
    explicit PathTable(const QList<Object *> &objects)
        : m_objects(objects)
    {
        size_t size = 1;
        while (size < 2 * size_t(objects.size()))
            size *= 2;
        m_places.resize(size);
        for (int i = 0; i < objects.size(); ++i) {
            const uint hash = qHash(objects.at(i)->path());
            size_t place = hash & (size - 1);
            while (m_places[place].number > 0)
                place = (place + 1) & (size - 1);
            m_places[place] = {hash, quint32(i + 1)};
        }
    }

    /// The first object that is called exactly so and that `accepts` returns true for; else null.
    template<typename Accepts>
    Object *find(const QString &path, const Accepts &accepts) const
    {
        const uint hash = qHash(path);
        const size_t last = m_places.size() - 1;
        for (size_t i = hash & last; m_places[i].number > 0; i = (i + 1) & last) {
            if (m_places[i].hash != hash)
                continue;
            Object *object = m_objects.at(int(m_places[i].number) - 1);
            if (object->path() == path && accepts(*object))
                return object;
        }
        return nullptr;
    }

private:
    struct Place
    {
        uint hash = 0;
        quint32 number = 0; ///< of the object, from 1; 0 for a free place
    };

    const QList<Object *> &m_objects;
    std::vector<Place> m_places; ///< a power of two, at most half of them taken
};

} // namespace Check
