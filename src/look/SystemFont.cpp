#include "look/SystemFont.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QRawFont>

#include <algorithm>
#include <optional>

namespace velmora::SystemFont {
namespace {

const QString kPreferredFamily = QStringLiteral("Inter");

struct State {
    AppLanguage language = AppLanguage::en;
    QStringList families;
    /// The language's own family among them; empty where it needs none or none is installed.
    QString ownFamily;
    /// Stays as it is when the language changes.
    bool isPinned = false;
    unsigned generation = 0;
};

State& state() {
    static State state;
    return state;
}

/// What a language of Chinese, Japanese or Korean characters needs.
struct OwnShapes {
    /// The region in the names of the great families.
    const char* region;
    /// Of no effect on outlines. The toolkit keeps the engine of a first family with the families that came
    /// after it when it was first asked for; a font that differs in this gets an engine of its own.
    int distinction;
};

std::optional<OwnShapes> ownShapes(AppLanguage language) {
    switch (language) {
        case AppLanguage::ja:
            return OwnShapes{"JP", QFont::PreferMatch};
        case AppLanguage::ko:
            return OwnShapes{"KR", QFont::PreferQuality};
        case AppLanguage::zhHans:
            return OwnShapes{"SC", QFont::PreferMatch | QFont::PreferQuality};
        case AppLanguage::zhHant:
            return OwnShapes{"TC", QFont::PreferOutline};
        default:
            return std::nullopt;
    }
}

QString ownFamilyOf(AppLanguage language) {
    const auto shapes = ownShapes(language);
    if (!shapes) return {};
    for (const char* name : {"Noto Sans CJK ", "Noto Sans ", "Source Han Sans "}) {
        QString family = QLatin1String(name) + QLatin1String(shapes->region);
        if (QFontDatabase::hasFamily(family)) return family;
    }
    return {};
}

QStringList systemFamilies(const QString& ownFamily) {
    QStringList families = QFontDatabase::systemFont(QFontDatabase::GeneralFont).families();
    // Last put in front is first.
    for (const QString& family : {ownFamily, kPreferredFamily}) {
        families.removeAll(family);
        if (QFontDatabase::hasFamily(family)) families.prepend(family);
    }
    return families;
}

}  // namespace

void setLanguage(AppLanguage language) {
    if (state().language == language) return;
    state().language = language;
    if (state().isPinned) return;
    state().families.clear();
    ++state().generation;
}

QStringList families() {
    if (state().families.isEmpty()) {
        state().ownFamily = ownFamilyOf(state().language);
        state().families = systemFamilies(state().ownFamily);
    }
    return state().families;
}

bool isInstalled() {
    constexpr int kAnySize = 12;
    // What stands in for a missing font has no tables.
    return !QRawFont::fromFont(ofPixelSize(kAnySize, QFont::Normal)).fontTable("head").isEmpty();
}

QFont ofPixelSize(int pixels, QFont::Weight weight) {
    QFont font(families());
    font.setPixelSize(pixels);
    font.setWeight(weight);
    const auto shapes = ownShapes(state().language);
    font.setStyleStrategy(static_cast<QFont::StyleStrategy>(
        QFont::PreferAntialias | QFont::NoSubpixelAntialias | (shapes ? shapes->distinction : 0)));
    return font;
}

LineExtent lineExtent(const QFont& font) {
    const QFontMetricsF metrics(font);
    LineExtent extent{metrics.ascent(), metrics.descent()};
    if (!font.families().contains(state().ownFamily)) return extent;
    QFont alone(font);
    alone.setFamilies({state().ownFamily});
    const QFontMetricsF taller(alone);
    return {std::max(extent.ascent, taller.ascent()), std::max(extent.descent, taller.descent())};
}

void pin(const QStringList& families) {
    state().families = families;
    state().ownFamily.clear();
    state().isPinned = !families.isEmpty();
    ++state().generation;
}

unsigned generation() {
    return state().generation;
}

}  // namespace velmora::SystemFont
