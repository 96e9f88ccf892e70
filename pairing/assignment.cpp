#include "pairing/assignment.h"

#include <algorithm>
#include <limits>

double Assignment::solve(int n, double enough)
{
    size = n;
    find_gains();
    double upper = bound();
    if (upper <= enough)
        return upper;

    assign_best_columns();
    while (upper > enough && unassigned_count > 0) {
        augment(unassigned[--unassigned_count]);
        upper = bound();
    }
    return upper;
}

double Assignment::bound() const
{
    double sum = 0.0;
    for (int k = 0; k < size; ++k)
        sum += gain[k] + price[k];
    return sum;
}

/// Most that row i gains from any column. Four running maxima, as one would wait for itself.
double Assignment::best_gain(int i) const
{
    enum
    {
        lanes = 4
    };
    double most[lanes];
    for (int k = 0; k < lanes; ++k)
        most[k] = profit[i][0] - price[0];
    int j = 0;
    for (; j + lanes <= size; j += lanes)
        for (int k = 0; k < lanes; ++k) {
            const double value = profit[i][j + k] - price[j + k];
            most[k] = value > most[k] ? value : most[k];
        }
    for (; j < size; ++j)
        most[0] = std::max(most[0], profit[i][j] - price[j]);
    return std::max(std::max(most[0], most[1]), std::max(most[2], most[3]));
}

void Assignment::find_gains()
{
    for (int i = 0; i < size; ++i)
        gain[i] = best_gain(i);
}

void Assignment::assign_best_columns()
{
    unassigned_count = 0;
    for (int j = 0; j < size; ++j)
        row[j] = -1;
    for (int i = 0; i < size; ++i) {
        int best = 0;
        while (best < size - 1 && profit[i][best] - price[best] != gain[i])
            ++best;
        column[i] = best;
        if (row[best] < 0)
            row[best] = i;
        else
            unassigned[unassigned_count++] = i;
    }
}

/// Assigns one more row along the path of least regret to a free column.
void Assignment::augment(int start)
{
    gain[start] = best_gain(start);
    for (int j = 0; j < size; ++j) {
        distance[j] = regret(start, j);
        previous_row[j] = start;
        sequence[j] = j;
    }

    int settled = 0;
    int last;
    for (;;) {
        int nearest = settled;
        for (int k = settled + 1; k < size; ++k)
            if (distance[sequence[k]] < distance[sequence[nearest]])
                nearest = k;
        last = sequence[nearest];
        if (row[last] < 0)
            break;
        std::swap(sequence[nearest], sequence[settled]);
        settle(last, ++settled);
    }

    const double length = distance[last];
    gain[start] -= length;
    for (int k = 0; k < settled; ++k) {
        const int j = sequence[k];
        price[j] += length - distance[j];
        gain[row[j]] -= length - distance[j];
    }
    for (int j = last, i = -1; i != start;) {
        i = previous_row[j];
        row[j] = i;
        std::swap(j, column[i]);
    }
}

/// Looks for shorter ways to the columns that are not settled, through the row of this column.
void Assignment::settle(int through, int settled)
{
    const int i = row[through];
    const double offset = distance[through] - regret(i, through);
    for (int k = settled; k < size; ++k) {
        const int j = sequence[k];
        const double length = offset + regret(i, j);
        if (length < distance[j]) {
            distance[j] = length;
            previous_row[j] = i;
        }
    }
}
