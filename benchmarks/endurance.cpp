// endurance soak [ROUNDS]      openings, Applies and matchings: what the process holds stays the
// same endurance hostile [SECONDS]  mutated lines against open dialogs: stalls, growth of memory
#include "benchmarks/endurance.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QWidget>

#include <malloc.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace
{

int timers_of(QObject* object)
{
    return QAbstractEventDispatcher::instance()->registeredTimers(object).size();
}

double resident_memory()
{
    QFile file("/proc/self/statm");
    if (!file.open(QIODevice::ReadOnly))
        return 0.0;
    return file.readAll().split(' ').value(1).toDouble() * double(sysconf(_SC_PAGESIZE)) / 1e6;
}

double allocated_memory()
{
#if __GLIBC_PREREQ(2, 33)
    return double(mallinfo2().uordblks) / 1e6;
#else
    return 0.0;
#endif
}

} // namespace

Holdings holdings()
{
    Holdings held = {resident_memory(), allocated_memory(), 0, 0, 0, 0};
    held.descriptors = int(QDir("/proc/self/fd")
                               .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
                               .size());
    QObjectList roots = {qApp};
    for (QWidget* window : QApplication::topLevelWidgets())
        roots << window;
    for (QObject* root : roots) {
        const QObjectList children = root->findChildren<QObject*>();
        held.timers += timers_of(root);
        for (QObject* child : children)
            held.timers += timers_of(child);
        if (root != qApp)
            held.window_childs += children.size();
    }
    held.windows = roots.size() - 1;
    return held;
}

void print(const char* when, const Holdings& held)
{
    std::printf("%-16s %8.1f MB resident, %.2f MB allocated, %d descriptors, %d timers, %d "
                "windows, %d objects in them\n",
                when, held.memory, held.allocated, held.descriptors, held.timers, held.windows,
                held.window_childs);
    std::fflush(stdout);
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const char* const kind = argc > 1 ? argv[1] : "";
    const int length = argc > 2 ? std::atoi(argv[2]) : 0;
    if (std::strcmp(kind, "soak") == 0)
        return soak(length > 0 ? length : 5000);
    if (std::strcmp(kind, "hostile") == 0)
        return hostile(length > 0 ? length : 600);
    std::fprintf(stderr, "endurance soak [ROUNDS] | hostile [SECONDS]\n");
    return 2;
}
