#include "tools/program.h"

#include "registration/trafo3d.h"
#include "tools/commandline.h"
#include "tools/errorpicture.h"
#include "tools/noise.h"
#include "tools/output.h"

#include <QFile>
#include <QJsonDocument>
#include <QSaveFile>

#include <fstream>

namespace
{

constexpr double agreement = 0.25; // share by which simulation and closed form may differ

/// One run of the program.
class Run
{
public:
    Run(const CommandLine& line, std::ostream& out, std::ostream& error)
        : m_line(line), m_out(out), m_error(error)
    {
    }

    int fit()
    {
        PointFile reference, measured;
        // Both are read in any case, so that all mistakes come to light at once.
        const bool reference_is_read = read(m_line.files[0], &reference);
        if (!read(m_line.files[1], &measured) || !reference_is_read)
            return verdict_error;
        warn(reference);
        warn(measured);
        const double noise = m_line.noise > 0.0 ? m_line.noise : default_noise;
        const FitAnalysis analysis =
            analyze_fit(reference.points, measured.points, m_line.is_ordered, noise);
        m_line.is_json ? print(fit_json(analysis)) : print(fit_text(analysis));
        return worse(analysis.verdict, reference.is_serious() || measured.is_serious());
    }

    int check()
    {
        PointFile file;
        if (!read(m_line.files[0], &file))
            return verdict_error;
        ObjectCheck checked = check_object(file.points, m_line.tolerance);
        if (file.is_serious())
            checked.doubts << QString::fromLatin1("Some lines were skipped that look like points, "
                                                  "or lack a value.");
        checked.verdict = worse(checked.verdict, file.is_serious());
        m_line.is_json ? print(check_json(file, checked)) : print(check_text(file, checked));
        return checked.verdict;
    }

    int expect()
    {
        PointFile file;
        if (!read(m_line.files[0], &file) || !has_points_for_fit(file))
            return verdict_error;
        warn(file);
        Points places = m_line.places;
        places.insert(places.begin(), bsVector());
        const Expectation expected = expect_errors(file.points, m_line.noise, places);
        const Verdict verdict = worse(verdict_of(expected), file.is_serious());
        m_line.is_json ? print(expectation_json(expected, m_line.noise, verdict))
                       : print(expectation_text(expected, m_line.noise, verdict));
        if (!m_line.picture.isEmpty()
            && !write_picture(error_picture(file.points, expected, m_line.noise)))
            return verdict_error;
        return verdict;
    }

    int fail(const QString& message)
    {
        m_error << "room-adjustment-points: " << message.toLocal8Bit().constData() << '\n';
        return verdict_error;
    }

private:
    static Verdict worse(Verdict verdict, bool is_serious)
    {
        return is_serious ? std::max(verdict, verdict_doubtful) : verdict;
    }

    static Verdict verdict_of(const Expectation& expected)
    {
        bool agrees = expected.failures == 0;
        for (const ErrorAt& error : expected.places)
            agrees =
                agrees && std::isfinite(error.closed_form)
                && std::fabs(error.simulated - error.closed_form) <= agreement * error.closed_form;
        return agrees ? verdict_good : verdict_doubtful;
    }

    bool read(const QString& name, PointFile* file)
    {
        std::ifstream stream(QFile::encodeName(name).constData(), std::ios::binary);
        if (!stream.is_open()) {
            fail(name + QLatin1String(": cannot be opened"));
            return false;
        }
        *file = read_point_file(stream, name);
        if (!file->error.isEmpty())
            fail(file->error);
        return file->error.isEmpty();
    }

    bool has_points_for_fit(const PointFile& file)
    {
        const int count = static_cast<int>(file.points.size());
        if (count >= 3 && count <= trafo3d_max_points)
            return true;
        fail(QString::fromLatin1("%1: holds %2 points; a fit takes 3 to %3")
                 .arg(file.name)
                 .arg(count)
                 .arg(int(trafo3d_max_points)));
        return false;
    }

    void warn(const PointFile& file)
    {
        for (const LineNote& note : file.notes)
            if (note.is_serious)
                m_error << located(file.name, note).toLocal8Bit().constData() << '\n';
    }

    bool write_picture(const QString& picture)
    {
        QSaveFile file(m_line.picture);
        if (file.open(QIODevice::WriteOnly) && file.write(picture.toUtf8()) >= 0 && file.commit())
            return true;
        fail(m_line.picture + QLatin1String(": ") + file.errorString());
        return false;
    }

    void print(const QString& text) { m_out << text.toLocal8Bit().constData(); }
    void print(const QJsonObject& json) { m_out << QJsonDocument(json).toJson().constData(); }

    const CommandLine& m_line;
    std::ostream& m_out;
    std::ostream& m_error;
};

} // namespace

int run_program(const QStringList& arguments, std::ostream& out, std::ostream& error)
{
    CommandLine line;
    QString mistake;
    Run run(line, out, error);
    if (!read_command_line(arguments, &line, &mistake))
        return run.fail(mistake + QLatin1String("; see room-adjustment-points --help"));
    switch (line.command) {
    case command_fit:
        return run.fit();
    case command_check:
        return run.check();
    case command_expect:
        return run.expect();
    case command_version:
        out << "room-adjustment-points " TOOLS_VERSION "\n";
        break;
    case command_help:
        out << help_text().toLocal8Bit().constData();
        break;
    }
    return verdict_good;
}
