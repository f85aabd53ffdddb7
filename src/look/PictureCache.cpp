#include "look/PictureCache.h"

#include <QHashFunctions>

namespace velmora {

PictureCache::PictureCache(qsizetype mostBytes) : m_pictures(mostBytes) {}

QImage PictureCache::find(const Key& key) const {
    const QImage* picture = m_pictures.object(key);
    return picture ? *picture : QImage();
}

void PictureCache::insert(const Key& key, const QImage& picture) {
    m_pictures.insert(key, new QImage(picture), picture.sizeInBytes());
}

qsizetype PictureCache::bytes() const {
    return m_pictures.totalCost();
}

size_t qHash(const PictureCache::Key& key, size_t seed) {
    return qHashMulti(seed, key.drawing, key.pixels, key.color);
}

}  // namespace velmora
