// Runs a scope under a locale whose decimal sign is the comma.
#ifndef TESTS_SUPPORT_COMMA_LOCALE_H
#define TESTS_SUPPORT_COMMA_LOCALE_H

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

#include <clocale>

/// Compiles a German locale for this process alone and sets it, as no machine is sure to have one
/// installed; needs `localedef`. The destructor goes back to the C locale.
class CommaLocale
{
public:
    CommaLocale()
    {
        const QString locale = folder.filePath("de_DE.UTF-8");
        QProcess::execute("localedef", {"-i", "de_DE", "-f", "UTF-8", locale});
        qputenv("LOCPATH", folder.path().toLocal8Bit());
        std::setlocale(LC_ALL, "de_DE.UTF-8");
    }
    ~CommaLocale()
    {
        std::setlocale(LC_ALL, "C");
        qunsetenv("LOCPATH");
    }

    /// False if the locale could not be made here.
    bool isActive() const { return *std::localeconv()->decimal_point == ','; }

private:
    CommaLocale(const CommaLocale&);
    CommaLocale& operator=(const CommaLocale&);

    QTemporaryDir folder;
};

#endif
