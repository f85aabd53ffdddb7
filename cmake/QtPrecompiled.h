// What nearly every file of the rooms with Qt adds.
#include "Precompiled.h"

#include <QColor>
#include <QCoreApplication>
#include <QImage>
#include <QObject>
#include <QPainter>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QVariantMap>
