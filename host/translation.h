// The language in which host and module speak to the person.
#ifndef HOST_TRANSLATION_H
#define HOST_TRANSLATION_H

class QString;

/// Loads the texts of Qt, of this program and of the module in file `plugin`, each for `language`
/// (a code such as "de") as far as there is a translation; empty: for the desktop's language. False
/// if a language was named that this program has no texts in. English is always there. Numbers are
/// not affected. Call it once, before the first window, with a QCoreApplication.
bool load_translations(const QString& language, const QString& plugin);

#endif
