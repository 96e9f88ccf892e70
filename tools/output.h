// The results of the offline tool as text for people and as JSON for programs.
//
// Lengths are mm, angles degrees, points are numbered from 1. The texts end with a line feed.
// Numbers have a point and no grouping, whatever the locale.
#ifndef TOOLS_OUTPUT_H
#define TOOLS_OUTPUT_H

#include "tools/expectation.h"
#include "tools/fitanalysis.h"
#include "tools/objectcheck.h"
#include "tools/pointfile.h"

#include <QJsonObject>

QString fit_text(const FitAnalysis& fit);
QJsonObject fit_json(const FitAnalysis& fit);

QString check_text(const PointFile& file, const ObjectCheck& check);
QJsonObject check_json(const PointFile& file, const ObjectCheck& check);

QString expectation_text(const Expectation& expected, double noise, Verdict verdict);
QJsonObject expectation_json(const Expectation& expected, double noise, Verdict verdict);

/// "good", "doubtful" or "error".
QString verdict_name(Verdict verdict);

/// The last words of a text: the verdict, and what it hangs on.
QString verdict_text(Verdict verdict, const QStringList& doubts);

/// Pairs of an order that differ from `other`, as in "1 -> 4, 2 -> 3".
QString pairs_text(const std::vector<int>& order, const std::vector<int>& other);

QString mm(double value, int decimals = 2);
QJsonArray point_json(const bsVector& point);
QJsonArray order_json(const std::vector<int>& order);

#endif
