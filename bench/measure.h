#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

/// Seconds that `work` takes.
double seconds(const std::function<void()> &work);

/// Shows the widget, unless it is shown, and lets the event loop run until it has been painted.
void paint(QWidget *widget);

/// Bytes by which this process' resident memory stood, at its highest, above what it was before.
double peakBytes(const std::function<void()> &work);

/// The answer of this program started anew with `arguments`: one number on standard output.
double numberFromChild(const QStringList &arguments);
