// What the command line asks the host to do.
#ifndef HOST_OPTIONS_H
#define HOST_OPTIONS_H

#include <QString>
#include <QStringList>

struct Options
{
    QString plugin;                ///< file of the module
    QString simulator;             ///< program to start where no controller is given
    QStringList simulator_options; ///< passed on as they are
    QString controller_host;       ///< empty: start a simulator
    quint16 controller_port = 0;
    QString language; ///< code such as "de"; empty: the desktop's
    bool observer = false;
    QString record_file;    ///< empty: do not record
    bool overwrite = false; ///< a file of that name may be lost
    QString replay_file;    ///< empty: deliver the controller's data
    bool demo = false;
    QString screenshot_folder; ///< empty: no screenshots
    int demo_limit = 0;        ///< seconds

    bool interactive = false; ///< a person looks on: windows are placed and remembered
    bool fresh = false;       ///< forget places of windows and what was dismissed
    bool help = false;
    bool version = false;
};

/// Reads the arguments, the program's name first; defaults stand next to the running program. Needs
/// a QCoreApplication. False on a mistake, told in `error`; `help` and `version` hold even then.
bool read_options(const QStringList& arguments, Options* options, QString* error);

QString help_text();

/// True if recording would destroy a file that nobody has given up yet.
bool would_overwrite(const Options& options);

#endif
