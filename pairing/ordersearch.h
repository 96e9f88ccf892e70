// Finds the order of measured points that fits best to a list of reference points.
#ifndef PAIRING_ORDERSEARCH_H
#define PAIRING_ORDERSEARCH_H

class SearchObserver;

/// Finds the order of the n measured points whose rigid fit (trafo3d_3trafo, then
/// trafo3d_opttrafo) to the n reference points has the smallest residual: reference[i] belongs to
/// measured[order[i]]. Orders whose fit fails do not count.
/// Returns false, `order` untouched, if every order fails, if n is below 3, or if n is above
/// `trafo3d_max_points`, where no order is tried; also if the observer ends the search, or if with
/// more than ten points it takes more work than some seconds allow.
bool find_best_order(const double (*reference)[3], const double (*measured)[3], int n, int* order,
                     SearchObserver* observer = nullptr);

#endif
