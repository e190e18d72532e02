#pragma once

#include "hostexport.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <string>
#include <string_view>
#include <vector>

class QJsonObject;

namespace NlsData {

struct CellCodes
{
    int category = 0;
    int primitive = 0;
};

/// A parameter of a cell as the netlist file gives it.
struct CellParameter
{
    std::string_view name;
    std::string_view value;
    bool decimal = false; ///< the value was written as a number, not as a text
};

/// What the libraries know of one cell type.
class HOST_EXPORT CellType
{
public:
    /// The codes of a cell with these parameters.
    CellCodes codes(const std::vector<CellParameter> &parameters) const;

    /// Whether the codes depend on the parameters.
    bool hasVariants() const { return !m_variants.empty(); }

    /// Whether a port of that name drives its net.
    bool isOutput(std::string_view port) const;

private:
    friend class CellLibrary;

    /// One allowed value of a parameter.
    struct Value
    {
        enum Kind { Absent, Number, Text } kind = Absent;
        quint64 number = 0;
        std::string text;
    };
    struct Condition
    {
        std::string parameter;
        std::vector<Value> values;
    };
    struct Variant
    {
        std::vector<Condition> conditions;
        CellCodes codes;
    };

    static bool fits(const Value &value, const CellParameter *parameter);
    static bool holds(const Condition &condition, const std::vector<CellParameter> &parameters);

    CellCodes m_codes;
    std::vector<Variant> m_variants;
    std::vector<std::string> m_outputs;
};

/// The cell types of all families, from a folder of files whose format its README describes.
class HOST_EXPORT CellLibrary
{
public:
    /// The libraries that the host carries and the user's own, whose cell types replace the host's
    /// of the same name. Loaded at the first call. Callable from any thread.
    static const CellLibrary &standard();

    /// The user's libraries are the files "*.json" of this folder, which need not exist.
    static QString userFolder();

    /// What is wrong with the user's libraries, one sentence per fault that names the file. Loads
    /// them at the first call. Callable from any thread.
    static QStringList userProblems();

    /// Loads every "*.json" of `folder`; what is wrong with a file is added to `problems` and the
    /// rest is loaded.
    CellLibrary(const QString &folder, QStringList *problems);

    /// Adds the types of `other`, in place of those of the same name.
    void add(const CellLibrary &other);

    /// The type of that name, exact or by its beginning; null when unknown. Owned by the library.
    const CellType *find(std::string_view type) const;

private:
    void load(const QString &path, QStringList *problems);
    static QString parse(const QJsonObject &json, CellType *type);
    static QString parseVariant(const QJsonObject &json, CellType *type);

    QHash<QByteArray, CellType> m_types;
    QHash<QByteArray, CellType> m_prefixes;
};

} // namespace NlsData
