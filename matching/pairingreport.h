// The words in which the matching dialog tells the outcome of an evaluation.
#ifndef MATCHING_PAIRINGREPORT_H
#define MATCHING_PAIRINGREPORT_H

#include "pairing/pointpairing.h"

#include <QString>

/// The report for any outcome, failures included. Lengths are mm.
QString pairing_report(const PairingResult& result);

#endif
