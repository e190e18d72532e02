#pragma once

class QString;
class Suite;

// One function per group of rows. Each makes its data, measures, and frees the data.

void netlistWork(Suite &suite);
void finderWork(Suite &suite);
void tableWork(Suite &suite);
void documentWork(Suite &suite);
void checkWork(Suite &suite);
void startWork(Suite &suite);
void activityWork(Suite &suite);

// Peak memory in bytes, measured in a process of its own.

double netlistPeak(const QString &netlist, bool allNames);
double activityPeak(const QString &path);
double viewPeak(const QString &netlist, const QString &configuration);
