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

/// A parameter of a cell as in the netlist file.
struct CellParameter
{
    std::string_view name;
    std::string_view value;
    bool decimal = false; ///< the value was written as a number, not as a text
};

/// A cell type of the libraries.
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
    /// The built-in libraries and the user's own, whose cell types replace built-in ones of the
    /// same name. Loaded by the first call. Callable from any thread.
    static const CellLibrary &standard();

    /// The folder of the user's libraries ("*.json"), which need not exist.
    static QString userFolder();

    /// The errors in the user's libraries, one sentence each that names the file. The first call
    /// loads the libraries. Callable from any thread.
    static QStringList userProblems();

    /// Loads every "*.json" of `folder`; errors are added to `problems`, and everything else is
    /// loaded.
    CellLibrary(const QString &folder, QStringList *problems);

    /// Adds the types of `other`, replacing those of the same name.
    void add(const CellLibrary &other);

    /// The type of that name, exact or by its prefix; null if unknown. Owned by the library.
    const CellType *find(std::string_view type) const;

private:
    void load(const QString &path, QStringList *problems);
    static QString parse(const QJsonObject &json, CellType *type);
    static QString parseVariant(const QJsonObject &json, CellType *type);

    QHash<QByteArray, CellType> m_types;
    QHash<QByteArray, CellType> m_prefixes;
};

} // namespace NlsData
