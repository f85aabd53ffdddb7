#include "panels/kit/PanelText.h"

#include "look/SystemFont.h"
#include "panels/kit/PixelGrid.h"

#include <QFontMetricsF>
#include <QHash>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <memory>

namespace velmora::PanelText {
namespace {

constexpr qsizetype kLongest = 500;
constexpr QChar kEllipsis(u'\u2026');

struct Face {
    QFont font;
    QFontMetricsF metrics;
    double digitCell = 0;

    explicit Face(const QFont& of) : font(of), metrics(of) {
        for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
            digitCell = std::max(digitCell, metrics.horizontalAdvance(QChar(digit)));
        }
    }
};

/// The faces that panels use: a dozen pairs of size and weight.
const Face& faceOf(const PanelFont& font) {
    static QHash<int, std::shared_ptr<const Face>> faces;
    static unsigned generation = 0;
    if (generation != SystemFont::generation()) {
        generation = SystemFont::generation();
        faces.clear();
    }
    constexpr int kHeaviest = 1000;
    std::shared_ptr<const Face>& face = faces[font.size * kHeaviest + font.weight];
    if (!face) {
        QFont asked = SystemFont::ofPixelSize(std::max(font.size, 1), font.weight);
        // Letters keep their widths at every ratio, so a layout does too.
        asked.setHintingPreference(QFont::PreferVerticalHinting);
        face = std::make_shared<const Face>(asked);
    }
    return *face;
}

bool isDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

/// Whether the digits may be placed one by one: among letters that run from right to left they may not.
bool hasCells(const PanelFont& font, const QString& text) {
    return font.digits == DigitWidth::monospaced && std::ranges::any_of(text, isDigit) &&
           std::ranges::none_of(text, [](QChar character) {
               const QChar::Direction direction = character.direction();
               return direction == QChar::DirR || direction == QChar::DirAL || direction == QChar::DirAN;
           });
}

/// Calls `piece` with each digit and each stretch between digits, and the room that it takes.
template <typename Piece>
void forEachPiece(const Face& face, const QString& text, const Piece& piece) {
    for (qsizetype from = 0; from < text.size();) {
        if (isDigit(text[from])) {
            piece(text.mid(from, 1), face.digitCell);
            ++from;
            continue;
        }
        qsizetype to = from;
        while (to < text.size() && !isDigit(text[to])) ++to;
        const QString stretch = text.mid(from, to - from);
        piece(stretch, face.metrics.horizontalAdvance(stretch));
        from = to;
    }
}

void drawCells(QPainter& painter, const Face& face, const QString& text, QPointF start) {
    forEachPiece(face, text, [&](const QString& piece, double room) {
        const double inset =
            isDigit(piece.front()) ? (room - face.metrics.horizontalAdvance(piece)) / 2 : 0.0;
        painter.drawText(start + QPointF(inset, 0), piece);
        start.rx() += room;
    });
}

bool turnsDirection(QChar character) {
    const char16_t code = character.unicode();
    return code == 0x200E || code == 0x200F || code == 0x061C || (code >= 0x202A && code <= 0x202E) ||
           (code >= 0x2066 && code <= 0x2069);
}

}  // namespace

QString plain(std::string_view utf8) {
    // A character has at most four bytes.
    const std::string_view begin = utf8.substr(0, static_cast<std::size_t>(kLongest) * 4);
    QString text = QString::fromUtf8(begin.data(), static_cast<qsizetype>(begin.size()));
    text.removeIf(turnsDirection);
    for (QChar& character : text) {
        const QChar::Category category = character.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line ||
            category == QChar::Separator_Paragraph) {
            character = u' ';
        }
    }
    if (text.size() > kLongest) text.truncate(text[kLongest].isLowSurrogate() ? kLongest - 1 : kLongest);
    return text;
}

double width(const PanelFont& font, const QString& text) {
    if (text.isEmpty()) return 0;
    const Face& face = faceOf(font);
    if (!hasCells(font, text)) return face.metrics.horizontalAdvance(text);
    double total = 0;
    forEachPiece(face, text, [&total](const QString&, double room) { total += room; });
    return total;
}

int lineHeight(const PanelFont& font) {
    return static_cast<int>(std::ceil(faceOf(font).metrics.height()));
}

QString elided(const PanelFont& font, const QString& text, double room) {
    // So that a box as wide as the text is not too narrow by a rounding error.
    constexpr double kSlack = 0.01;
    if (width(font, text) <= room + kSlack) return text;
    if (width(font, kEllipsis) > room) return {};
    QString cut = faceOf(font).metrics.elidedText(text, Qt::ElideRight, room);
    // Cells may be wider than the digits, by which the cut was measured.
    while (cut.size() > 1 && width(font, cut) > room + kSlack) {
        cut.chop(cut.endsWith(kEllipsis) ? 2 : 1);
        cut.append(kEllipsis);
    }
    return cut;
}

PanelFont fitting(const PanelFont& font, const QString& text, double room) {
    PanelFont fitted = font;
    while (fitted.size > kSmallest && width(fitted, text) > room) --fitted.size;
    return fitted;
}

void draw(QPainter& painter, const PanelFont& font, const QString& text, const QRectF& box, Side side,
          const QColor& color) {
    const QString shown = elided(font, text, box.width());
    if (shown.isEmpty()) return;
    const Face& face = faceOf(font);
    double x = box.left();
    switch (side) {
        case Side::leading:
            break;
        case Side::middle:
            x += (box.width() - width(font, shown)) / 2;
            break;
        case Side::trailing:
            x += box.width() - width(font, shown);
            break;
    }
    const double above = (box.height() - face.metrics.ascent() - face.metrics.descent()) / 2;
    const double baseline = PixelGrid(painter).y(box.top() + above + face.metrics.ascent());
    painter.setFont(face.font);
    painter.setPen(color);
    if (hasCells(font, shown)) {
        drawCells(painter, face, shown, {x, baseline});
    } else {
        painter.drawText(QPointF(x, baseline), shown);
    }
}

}  // namespace velmora::PanelText
