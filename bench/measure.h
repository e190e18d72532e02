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

/// Runs this program again with `arguments` and gives the number that it prints.
double numberFromChild(const QStringList &arguments);
