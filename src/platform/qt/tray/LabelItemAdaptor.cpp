#include "platform/qt/tray/LabelItemAdaptor.h"

namespace velmora {

QString LabelItemAdaptor::labelGuide() const {
    return QStringLiteral("100%");
}

void LabelItemAdaptor::labelChanged() {
    emit XAyatanaNewLabel(label(), labelGuide());
}

}  // namespace velmora
