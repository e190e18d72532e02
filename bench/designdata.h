#pragma once

#include <QString>
#include <QStringList>

// Designs made for the measurements, as the synthesis tool writes them.

/// Writes a flat netlist of `cells` cells to `path`: tables, carries and flip-flops with their
/// parameters and attributes, 32-bit vectors, and names like those of a real design. Gives the
/// size of the file in bytes.
qint64 writeNetlist(const QString &path, int cells);

/// Paths in that netlist, of a cell and of the vector that has the bit i % 32 for its output. Every
/// fourth and fifth cell is a flip-flop.
QString cellName(int i);
QString netName(int i);

/// Writes a flat netlist of `names.size()` flip-flops.
void writeFlipFlops(const QString &path, const QStringList &names);

/// Paths of `count` registers spread over sixteen processors: "soc/cpu3/stage1/reg_417".
QStringList registerNames(int count);
