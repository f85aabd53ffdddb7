#include "ContactSheet.h"
#include "PanelShots.h"
#include "SettingsShots.h"
#include "Shot.h"
#include "ShotFigures.h"
#include "ShotOptions.h"
#include "StyleShots.h"

#include "look/SystemFont.h"

#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QLoggingCategory>

#include <cstdio>

// Draws what the program shows into files, for people who look at a change, and for the documents. Each kind
// of picture has a file of its own that turns options and figures into shots.

namespace velmora {
namespace {

enum ExitStatus { kDone = 0, kOutputFailed = 1, kWrongUse = 2 };

int complain(const std::string& what, ExitStatus status) {
    std::fputs(("velmora-shots: " + what + "\n").c_str(), stderr);
    return status;
}

std::vector<Shot> takeShots(const ShotOptions& options, const StatsSnapshot& snapshot) {
    switch (options.what) {
        case ShotOptions::Kind::styles:
        case ShotOptions::Kind::squares:
            return takeStyleShots(options, snapshot);
        case ShotOptions::Kind::panels:
            return takePanelShots(options, snapshot);
        case ShotOptions::Kind::settings:
            return takeSettingsShots(options, snapshot);
    }
    return {};
}

std::string kindName(ShotOptions::Kind kind) {
    switch (kind) {
        case ShotOptions::Kind::styles:
            return "styles";
        case ShotOptions::Kind::squares:
            return "squares";
        case ShotOptions::Kind::panels:
            return "panels";
        case ShotOptions::Kind::settings:
            return "settings";
    }
    return {};
}

/// Widgets are painted at the scale of their screen, images at the scale that they are asked for.
bool showsWidgets(ShotOptions::Kind kind) {
    switch (kind) {
        case ShotOptions::Kind::styles:
        case ShotOptions::Kind::squares:
            return false;
        case ShotOptions::Kind::panels:
        case ShotOptions::Kind::settings:
            return true;
    }
    return false;
}

int run(const ShotOptions& options) {
    SystemFont::setLanguage(options.language);
    if (options.font) {
        const QString family = QString::fromStdString(*options.font);
        if (!QFontDatabase::hasFamily(family)) {
            return complain("no font family " + *options.font, kWrongUse);
        }
        SystemFont::pin({family});
    }
    std::string error;
    const auto snapshot = options.figures ? figuresFromFile(*options.figures, error)
                                          : std::optional(liveFigures(options.modules));
    if (!snapshot) return complain(error, kWrongUse);

    const QDir folder(QString::fromStdString(options.out));
    if (!folder.mkpath(QStringLiteral("."))) return complain("cannot make " + options.out, kOutputFailed);
    std::vector<Shot> shots = takeShots(options, *snapshot);
    if (options.sheet == ShotOptions::Sheet::with) {
        shots.push_back({kindName(options.what) + "-sheet", {}, contactSheet(shots, options)});
    }
    for (const Shot& shot : shots) {
        const QString path = folder.filePath(QString::fromStdString(shot.name) + QStringLiteral(".png"));
        if (!shot.image.save(path, "PNG"))
            return complain("cannot write " + path.toStdString(), kOutputFailed);
    }
    return kDone;
}

}  // namespace
}  // namespace velmora

int main(int argumentCount, char** arguments) {
    const std::vector<std::string_view> words(arguments + 1, arguments + argumentCount);
    std::string error;
    const auto options = velmora::parseShotOptions(words, error);
    if (!options) return velmora::complain(error, velmora::kWrongUse);
    if (options->action == velmora::ShotOptions::Action::showHelp) {
        std::fputs(velmora::kShotsHelp.data(), stdout);
        return velmora::kDone;
    }
    // The pictures are made in memory: no display is used, even where there is one.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (velmora::showsWidgets(options->what)) qputenv("QT_SCALE_FACTOR", QByteArray::number(options->scale));
    // Where there is no display, the toolkit says of each popup that it cannot grab the keyboard.
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
    const QApplication application(argumentCount, arguments);
    return velmora::run(*options);
}
