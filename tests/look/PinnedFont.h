#pragma once

#include "look/SystemFont.h"

#include <QFontDatabase>
#include <QStringList>

namespace velmora {

/// Draws with one family for as long as it lives.
class PinnedFont {
public:
    explicit PinnedFont(const QString& family) { SystemFont::pin({family}); }
    ~PinnedFont() { SystemFont::pin({}); }
    PinnedFont(const PinnedFont&) = delete;
    PinnedFont& operator=(const PinnedFont&) = delete;
};

/// The families that texts are tried with: those that are installed of the preferred one, a wide one and one
/// whose arrows are as wide as ideographs.
inline QStringList familiesToTry() {
    QStringList families;
    for (const char* family : {"Inter", "DejaVu Sans", "Noto Sans CJK JP"}) {
        if (QFontDatabase::hasFamily(QString::fromLatin1(family)))
            families.append(QString::fromLatin1(family));
    }
    return families;
}

}  // namespace velmora
