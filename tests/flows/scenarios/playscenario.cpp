// Plays a scenario; README.md tells how.

#include "tests/flows/scenarios/scenario.h"
#include "tests/flows/scenarios/scenarioplayer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>

namespace {

const QString Folder = QStringLiteral(SWIPELINE_SOURCE_DIR "/tests/flows/scenarios/");

std::optional<QString> readText(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return QString::fromUtf8(file.readAll());
}

std::optional<QString> loadSteps(const QString& name)
{
    return readText(Folder + QStringLiteral("steps/%1.steps").arg(name));
}

std::optional<Scenario> load(const QString& path)
{
    const std::optional<QString> text = readText(path);
    if (!text) {
        std::fprintf(stderr, "cannot read %s\n", qPrintable(path));
        return std::nullopt;
    }
    Scenario scenario = Scenario::parse(*text, QFileInfo(path).fileName(), loadSteps);
    if (!scenario.error.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(scenario.error));
        return std::nullopt;
    }
    return scenario;
}

bool play(const Scenario& scenario, ScenarioPlayer::Mode mode)
{
    ScenarioPlayer player(scenario, mode);
    const bool good = player.play();
    if (!good || mode == ScenarioPlayer::Mode::Tell)
        std::fprintf(stderr, "%s\n", qPrintable(player.story()));
    if (!good)
        std::fprintf(stderr, "FAILED: %s\n", qPrintable(player.failure()));
    return good;
}

bool playAtEveryPlace(const Scenario& scenario, ScenarioPlayer::Mode mode)
{
    const QStringList places =
        QDir(Folder + QStringLiteral("places")).entryList({QStringLiteral("*.steps")});
    bool good = !places.isEmpty();
    for (const QString& place : places) {
        std::optional<Scenario> whole = load(Folder + QStringLiteral("places/") + place);
        if (!whole)
            return false;
        whole->steps += scenario.steps;
        const bool well = play(*whole, mode);
        std::fprintf(stderr, "%s  %s\n", well ? "ok    " : "FAILED", qPrintable(place));
        good = good && well;
    }
    return good;
}

} // namespace

int main(int argc, char** argv)
{
    const bool tell = argc == 3 && std::string_view(argv[1]) == "--tell";
    if (argc != 2 && !tell) {
        std::fprintf(stderr, "usage: play_scenario [--tell] FILE\n");
        return 2;
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const auto mode = tell ? ScenarioPlayer::Mode::Tell : ScenarioPlayer::Mode::Compare;
    const std::optional<Scenario> scenario = load(QString::fromLocal8Bit(argv[argc - 1]));
    if (!scenario)
        return 2;
    const bool good =
        scenario->atEveryPlace ? playAtEveryPlace(*scenario, mode) : play(*scenario, mode);
    return good ? 0 : 1;
}
