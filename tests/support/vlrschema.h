#pragma once

#include <QByteArray>

/// What is wrong with a saved configuration file by the published schema (docs/vlr.rng), as
/// xmllint tells it; empty for a valid one.
///
///     QCOMPARE(schemaErrors(host.read("a.vlr")), QByteArray());
QByteArray schemaErrors(const QByteArray &file);
