#include "controller/replytext.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <cmath>
#include <vector>

double reply_number(const char* reply, int index, bool* ok)
{
    // QString::toDouble of Qt 4 tries the default locale first; QByteArray knows only the C locale.
    const QString field = QString::fromLatin1(reply).section(QLatin1Char(' '), index, index);
    bool read = false;
    const double value = field.toLatin1().toDouble(&read);
    read = read && std::isfinite(value);
    if (ok)
        *ok = read;
    return read ? value : 0.0;
}

bool reply_numbers(const char* reply, int count, double* values)
{
    std::vector<double> read(count);
    for (int i = 0; i < count; ++i) {
        bool ok = false;
        read[i] = reply_number(reply, i, &ok);
        if (!ok)
            return false;
    }
    std::copy(read.begin(), read.end(), values);
    return true;
}
