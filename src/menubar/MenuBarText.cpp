#include "menubar/MenuBarText.h"

#include "look/SystemFont.h"

#include <QColor>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QHash>
#include <QList>
#include <QPainter>
#include <QPolygonF>
#include <QRawFont>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace velmora::MenuBarText {
namespace {

/// Texts are shaped at this size, where no rounding to pixels shows, and scaled to the size that is asked
/// for.
constexpr int kShapingPixels = 256;
constexpr char16_t kBolt = u'\u26A1';
constexpr char16_t kTextPresentation = u'\uFE0E';
constexpr qsizetype kMostFaces = 96;

/// A run of glyphs of one face; positions in units of the font size.
struct ShapedRun {
    QRawFont face;
    QList<quint32> glyphs;
    QList<QPointF> positions;
};

struct ShapedText {
    QList<ShapedRun> runs;
    double advance = 0;
};

// The bolt is drawn, since the fallback font for it is often one of coloured pictures, which no ink can tint.
// Its outline is in units of the capitals' height, y upwards.
constexpr double kCapHeight = 0.72;
constexpr double kBoltAdvance = 0.74 * kCapHeight;

QPolygonF boltOutline() {
    return QPolygonF({{0.44, 1.06}, {0.02, 0.42}, {0.28, 0.42}, {0.18, -0.06}, {0.62, 0.58}, {0.35, 0.58}});
}

ShapedText shape(const QString& text, QFont::Weight weight) {
    QFont font = SystemFont::ofPixelSize(kShapingPixels, weight);
    // Stems keep their places from left to right, and horizontal strokes fall on pixel rows.
    font.setHintingPreference(QFont::PreferVerticalHinting);
    QTextLayout layout(text, font);
    layout.setCacheEnabled(true);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();

    ShapedText shaped;
    const double advance = QFontMetricsF(font).horizontalAdvance(text) / kShapingPixels;
    shaped.advance = std::isfinite(advance) ? std::max(advance, 0.0) : 0;
    for (const QGlyphRun& run : layout.glyphRuns()) {
        if (!run.rawFont().isValid()) continue;
        ShapedRun part{run.rawFont(), run.glyphIndexes(), {}};
        // The layout places glyphs from the top of its line; the line's baseline is that of its first run.
        const double ascent = layout.lineAt(0).ascent();
        for (const QPointF position : run.positions()) {
            part.positions.append(QPointF(position.x(), position.y() - ascent) / kShapingPixels);
        }
        shaped.runs.append(part);
    }
    return shaped;
}

/// What was shaped, and the faces at the sizes that are drawn.
class ShapeCache {
public:
    const ShapedText& text(const QString& text, QFont::Weight weight) {
        forgetIfPinned();
        auto& shaped = m_texts[weight];
        auto found = shaped.find(text);
        if (found == shaped.end()) found = shaped.insert(text, shape(text, weight));
        return *found;
    }

    double digitAdvance(QFont::Weight weight) {
        forgetIfPinned();
        if (const auto found = m_digitAdvances.constFind(weight); found != m_digitAdvances.constEnd()) {
            return *found;
        }
        double widest = 0;
        for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
            widest = std::max(widest, text(QString(QChar(digit)), weight).advance);
        }
        m_digitAdvances.insert(weight, widest);
        return widest;
    }

    const QRawFont& face(const QRawFont& shapingFace, double pixels) {
        for (const Face& face : m_faces) {
            if (face.pixels == pixels && face.shaping == shapingFace) return face.drawing;
        }
        if (m_faces.size() >= kMostFaces) m_faces.clear();
        QRawFont drawing = shapingFace;
        drawing.setPixelSize(pixels);
        m_faces.append({shapingFace, pixels, drawing});
        return m_faces.back().drawing;
    }

private:
    struct Face {
        QRawFont shaping;
        double pixels;
        QRawFont drawing;
    };

    void forgetIfPinned() {
        if (m_generation == SystemFont::generation()) return;
        m_generation = SystemFont::generation();
        m_texts.clear();
        m_digitAdvances.clear();
        m_faces.clear();
    }

    unsigned m_generation = 0;
    QHash<int, QHash<QString, ShapedText>> m_texts;
    QHash<int, double> m_digitAdvances;
    QList<Face> m_faces;
};

ShapeCache& cache() {
    // Never torn down: fonts must not outlive the application object, and it ends before static objects do.
    static auto* const cache = new ShapeCache;
    return *cache;
}

bool isDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}
bool isBolt(QChar character) {
    return character == kBolt || character == kTextPresentation;
}

enum class PieceKind { digit, bolt, text };

/// Takes the next piece off the front: one monospaced digit, a bolt, or the longest text without these.
PieceKind takePiece(QStringView& rest, const TextFont& font, QString& piece) {
    const auto isMonospaced = [&font](QChar character) {
        return font.digits == DigitWidth::monospaced && isDigit(character);
    };
    qsizetype length = 1;
    PieceKind kind = PieceKind::text;
    if (rest.front() == kBolt) {
        kind = PieceKind::bolt;
        if (rest.size() > 1 && rest[1] == kTextPresentation) length = 2;
    } else if (isMonospaced(rest.front())) {
        kind = PieceKind::digit;
    } else {
        while (length < rest.size() && !isMonospaced(rest[length]) && !isBolt(rest[length])) ++length;
    }
    piece = rest.first(length).toString();
    rest = rest.sliced(length);
    return kind;
}

void drawRuns(QPainter& painter, const ShapedText& shaped, double pixels, QPointF start) {
    for (const ShapedRun& run : shaped.runs) {
        QGlyphRun glyphs;
        glyphs.setRawFont(cache().face(run.face, pixels));
        glyphs.setGlyphIndexes(run.glyphs);
        QList<QPointF> positions;
        positions.reserve(run.positions.size());
        for (const QPointF position : run.positions) positions.append(position * pixels);
        glyphs.setPositions(positions);
        painter.drawGlyphRun(start, glyphs);
    }
}

void drawBolt(QPainter& painter, double pixels, QPointF start, const QColor& color) {
    const double unit = kCapHeight * pixels;
    QPolygonF outline = boltOutline();
    for (QPointF& point : outline) point = {start.x() + point.x() * unit, start.y() - point.y() * unit};
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawPolygon(outline);
    painter.setPen(color);
}

}  // namespace

double width(const TextFont& font, QStringView text) {
    double total = 0;
    QString piece;
    while (!text.isEmpty()) {
        switch (takePiece(text, font, piece)) {
            case PieceKind::digit:
                total += cache().digitAdvance(font.weight);
                break;
            case PieceKind::bolt:
                total += kBoltAdvance;
                break;
            case PieceKind::text:
                total += cache().text(piece, font.weight).advance;
                break;
        }
    }
    return total * font.size;
}

double fittingSize(const TextFont& font, QStringView text, double room) {
    const double wanted = width(font, text);
    return wanted > room ? font.size * room / wanted : font.size;
}

void draw(QPainter& painter, const TextFont& font, QStringView text, QPointF start, double ratio,
          const QColor& color) {
    const double pixels = font.size * ratio;
    QPointF pen(start.x() * ratio, std::round(start.y() * ratio));
    painter.setPen(color);
    QString piece;
    while (!text.isEmpty()) {
        switch (takePiece(text, font, piece)) {
            case PieceKind::digit: {
                const ShapedText& digit = cache().text(piece, font.weight);
                const double cell = cache().digitAdvance(font.weight);
                drawRuns(painter, digit, pixels, pen + QPointF((cell - digit.advance) / 2 * pixels, 0));
                pen.rx() += cell * pixels;
                break;
            }
            case PieceKind::bolt:
                drawBolt(painter, pixels, pen, color);
                pen.rx() += kBoltAdvance * pixels;
                break;
            case PieceKind::text: {
                const ShapedText& shaped = cache().text(piece, font.weight);
                drawRuns(painter, shaped, pixels, pen);
                pen.rx() += shaped.advance * pixels;
                break;
            }
        }
    }
}

}  // namespace velmora::MenuBarText
