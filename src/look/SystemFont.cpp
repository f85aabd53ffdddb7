#include "look/SystemFont.h"

#include <QFontDatabase>
#include <QRawFont>

namespace velmora::SystemFont {
namespace {

const QString kPreferredFamily = QStringLiteral("Inter");

struct State {
    QStringList families;
    unsigned generation = 0;
};

State& state() {
    static State state;
    return state;
}

QStringList systemFamilies() {
    QStringList families = QFontDatabase::systemFont(QFontDatabase::GeneralFont).families();
    families.removeAll(kPreferredFamily);
    if (QFontDatabase::hasFamily(kPreferredFamily)) families.prepend(kPreferredFamily);
    return families;
}

}  // namespace

QStringList families() {
    if (state().families.isEmpty()) state().families = systemFamilies();
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
    font.setStyleStrategy(
        static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    return font;
}

void pin(const QStringList& families) {
    state().families = families;
    ++state().generation;
}

unsigned generation() {
    return state().generation;
}

}  // namespace velmora::SystemFont
