#pragma once

#include "platform/qt/tray/NotifierItem.h"

#include <QDBusAbstractAdaptor>

namespace velmora {

/// `org.kde.StatusNotifierItem` of an item that is clicked. It has no `Menu` property at all: hosts query and
/// open whatever menu they are told of, an empty one too. The generator of this class's bus interface needs
/// the types spelled in full.
class ModuleItemAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category)
    Q_PROPERTY(QString Id READ id)
    Q_PROPERTY(QString Title READ title)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(int WindowId READ windowId)
    Q_PROPERTY(QString IconThemePath READ noText)
    Q_PROPERTY(QString IconName READ noText)
    Q_PROPERTY(QList<velmora::IconImage> IconPixmap READ iconPixmap)
    Q_PROPERTY(QString OverlayIconName READ noText)
    Q_PROPERTY(QList<velmora::IconImage> OverlayIconPixmap READ noPixmap)
    Q_PROPERTY(QString AttentionIconName READ noText)
    Q_PROPERTY(QList<velmora::IconImage> AttentionIconPixmap READ noPixmap)
    Q_PROPERTY(QString AttentionMovieName READ noText)
    Q_PROPERTY(velmora::NotifierToolTip ToolTip READ toolTip)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu)
public:
    explicit ModuleItemAdaptor(NotifierItem* item) : QDBusAbstractAdaptor(item), m_item(*item) {}

    /// The same for all items: some hosts sort by it first.
    QString category() const { return QStringLiteral("SystemServices"); }
    QString id() const { return m_item.notifierId(); }
    QString title() const { return m_item.notifierTitle(); }
    QString status() const { return QStringLiteral("Active"); }
    int windowId() const { return 0; }
    QString noText() const { return {}; }
    QList<velmora::IconImage> iconPixmap() const { return m_item.notifierIcons(); }
    QList<velmora::IconImage> noPixmap() const { return {}; }
    velmora::NotifierToolTip toolTip() const { return m_item.notifierToolTip(); }
    bool itemIsMenu() const { return m_item.isMenu(); }

    /// For the adaptor that publishes the label.
    virtual void labelChanged() {}

public slots:
    // Any click opens the item.
    void Activate(int x, int y) { emit m_item.clicked(x, y); }
    void SecondaryActivate(int x, int y) { emit m_item.clicked(x, y); }
    void ContextMenu(int x, int y) { emit m_item.clicked(x, y); }
    void Scroll(int, const QString&) {}
    void ProvideXdgActivationToken(const QString& token);

signals:
    void NewTitle();
    void NewIcon();
    void NewOverlayIcon();
    void NewAttentionIcon();
    void NewToolTip();
    void NewStatus(const QString& status);
    void NewMenu();

protected:
    NotifierItem& item() const { return m_item; }

private:
    NotifierItem& m_item;
};

}  // namespace velmora
