#pragma once

#include "ShotOptions.h"

#include <QColor>
#include <QImage>

#include <string>

namespace velmora {

/// A picture and the name of its file without the extension. Shots of one group stand in one row of a sheet.
struct Shot {
    std::string name;
    std::string group;
    QImage image;
};

/// What a bar or panel of the scheme is painted with.
inline QColor backdropOf(ShotOptions::Scheme scheme) {
    return scheme == ShotOptions::Scheme::dark ? QColor(42, 42, 45) : QColor(Qt::white);
}

}  // namespace velmora
