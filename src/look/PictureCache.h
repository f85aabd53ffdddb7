#pragma once

#include <QCache>
#include <QImage>
#include <QRgb>

#include <cstddef>

namespace velmora {

/// Painted pictures that are kept for the next time, as many as fit into a number of bytes. The ones that
/// were not asked for longest go first.
class PictureCache {
public:
    struct Key {
        std::size_t drawing = 0;
        int pixels = 0;
        QRgb color = 0;

        bool operator==(const Key&) const = default;
    };

    explicit PictureCache(qsizetype mostBytes);

    /// Null if it is not here.
    QImage find(const Key& key) const;
    /// A picture that alone is larger than the whole cache is not kept.
    void insert(const Key& key, const QImage& picture);

    /// What all kept pictures take.
    qsizetype bytes() const;

private:
    QCache<Key, QImage> m_pictures;
};

size_t qHash(const PictureCache::Key& key, size_t seed = 0);

}  // namespace velmora
