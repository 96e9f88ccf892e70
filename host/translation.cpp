#include "host/translation.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace
{

bool load(const QLocale& locale, const QString& name, const QString& folder)
{
    auto* translator = new QTranslator(QCoreApplication::instance());
    return translator->load(locale, name, QStringLiteral("_"), folder)
           && QCoreApplication::installTranslator(translator);
}

} // namespace

bool load_translations(const QString& language, const QString& plugin)
{
    const QLocale locale = language.isEmpty() ? QLocale::system() : QLocale(language);
    const QString program_folder = QCoreApplication::applicationDirPath();
    load(locale, QStringLiteral("qtbase"), QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    load(locale, QStringLiteral("roomadjustment"),
         QFileInfo(plugin).absolutePath() + QStringLiteral("/translations"));
    return load(locale, QStringLiteral("host"), program_folder + QStringLiteral("/../translations"))
           || language.isEmpty() || locale.language() == QLocale::English;
}
