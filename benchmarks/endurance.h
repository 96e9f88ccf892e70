// Long runs that watch what a process holds. Each returns the exit code: 0 if all that was promised
// held.
#ifndef BENCHMARKS_ENDURANCE_H
#define BENCHMARKS_ENDURANCE_H

/// What the process holds at this moment.
struct Holdings
{
    double memory;     ///< resident, MB
    double allocated;  ///< of the heap and not given back, MB; 0 if the C library does not tell
    int descriptors;   ///< open files
    int timers;        ///< that run, of all objects below the application and the top-level widgets
    int windows;       ///< top-level widgets, hidden ones included
    int window_childs; ///< objects below them
};

Holdings holdings();
void print(const char* when, const Holdings& held);

/// Opens the dialog `rounds` times; in each, applies a number, matches four points and accepts.
int soak(int rounds);

/// 2,000 intact and 2,000 mutated lines a second from another thread against dialogs that a script
/// edits, measures in, closes and opens again.
int hostile(int seconds);

#endif
