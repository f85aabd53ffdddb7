#include "platform/qt/desktop/XfcePanelColors.h"

#include "platform/qt/desktop/KeyFileText.h"
#include "platform/qt/session/BusTypes.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace velmora {
namespace {

const QString kService = QStringLiteral("org.xfce.Xfconf");
const QString kPath = QStringLiteral("/org/xfce/Xfconf");
const QString kChannel = QStringLiteral("xfce4-panel");
const QString kDarkMode = QStringLiteral("/panels/dark-mode");
const QString kStyle = QStringLiteral("/panels/panel-1/background-style");
const QString kColor = QStringLiteral("/panels/panel-1/background-rgba");
constexpr uint kOwnColor = 1;

std::optional<double> lightnessOfChannels(const QVariant& value) {
    const QVariantList channels = value.metaType() == QMetaType::fromType<QDBusArgument>()
                                      ? qdbus_cast<QVariantList>(value)
                                      : value.toList();
    if (channels.size() < 3) return std::nullopt;
    return velmora::lightness(channels[0].toDouble(), channels[1].toDouble(), channels[2].toDouble());
}

}  // namespace

XfcePanelColors::XfcePanelColors(const QDBusConnection& bus) : m_bus(bus) {
    if (!m_bus.isConnected()) return;
    registerBusTypes();
    m_bus.connect({}, kPath, kService, QStringLiteral("PropertyChanged"), this,
                  SLOT(propertyChanged(QString, QString, QDBusVariant)));
    for (const QString& property : {kDarkMode, kStyle, kColor}) read(property);
}

std::optional<double> XfcePanelColors::lightness() const {
    return m_style == kOwnColor ? m_colorLightness : std::nullopt;
}

void XfcePanelColors::propertyChanged(const QString& channel, const QString& property,
                                      const QDBusVariant& value) {
    if (channel == kChannel) take(property, value.variant());
}

void XfcePanelColors::read(const QString& property) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(kService, kPath, kService, QStringLiteral("GetProperty"));
    call << kChannel << property;
    auto* const pending = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    QObject::connect(pending, &QDBusPendingCallWatcher::finished, this,
                     [this, property](QDBusPendingCallWatcher* finished) {
                         finished->deleteLater();
                         const QDBusPendingReply<QDBusVariant> reply(*finished);
                         // A property that was never set is an error; it means the default.
                         if (!reply.isError()) take(property, reply.value().variant());
                     });
}

void XfcePanelColors::take(const QString& property, const QVariant& value) {
    if (property == kDarkMode) {
        m_darkMode = value.toBool();
    } else if (property == kStyle) {
        m_style = value.toUInt();
    } else if (property == kColor) {
        m_colorLightness = lightnessOfChannels(value);
    } else {
        return;
    }
    changed.fire();
}

}  // namespace velmora
