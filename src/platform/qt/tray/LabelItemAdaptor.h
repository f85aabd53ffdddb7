#pragma once

#include "platform/qt/tray/MenuItemAdaptor.h"

namespace velmora {

/// `org.kde.StatusNotifierItem` of an item with a menu, whose host shows a text beside the icon.
class LabelItemAdaptor final : public MenuItemAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString XAyatanaLabel READ label)
    Q_PROPERTY(QString XAyatanaLabelGuide READ labelGuide)
public:
    using MenuItemAdaptor::MenuItemAdaptor;

    QString label() const { return item().notifierLabel(); }
    /// A sample of the widest text, so that the item keeps its width.
    QString labelGuide() const;

    void labelChanged() override;

signals:
    void XAyatanaNewLabel(const QString& label, const QString& guide);
};

}  // namespace velmora
