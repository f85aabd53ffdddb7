// What the rooms with Qt add.
#include "Precompiled.h"

#include <QtCore/QtCore>
#include <QtGui/QtGui>
