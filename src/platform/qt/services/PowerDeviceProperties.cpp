#include "platform/qt/services/PowerDeviceProperties.h"

#include <QString>

#include <algorithm>
#include <cmath>
#include <optional>

namespace velmora {
namespace {

template <typename Value>
std::optional<Value> property(const QVariantMap& properties, const char* name) {
    const auto found = properties.constFind(QLatin1String(name));
    if (found == properties.constEnd() || found->metaType() != QMetaType::fromType<Value>())
        return std::nullopt;
    return found->template value<Value>();
}

std::string deviceName(const QString& text) {
    constexpr int kLongest = 128;
    const QString name = text.left(kLongest).trimmed();
    const bool isPrintable = std::all_of(
        name.begin(), name.end(), [](QChar letter) { return letter.category() != QChar::Other_Control; });
    return isPrintable ? name.toStdString() : std::string();
}

}  // namespace

void takePowerDeviceProperties(PowerDevice& device, const QVariantMap& properties) {
    if (const auto type = property<uint>(properties, "Type")) device.type = *type;
    if (const auto model = property<QString>(properties, "Model")) device.model = deviceName(*model);
    if (const auto supply = property<bool>(properties, "PowerSupply")) device.powerSupply = *supply;
    if (const auto present = property<bool>(properties, "IsPresent")) device.isPresent = *present;
    if (const auto percentage = property<double>(properties, "Percentage"))
        device.percentage = std::isfinite(*percentage) ? std::optional(*percentage) : std::nullopt;
    if (const auto level = property<uint>(properties, "BatteryLevel")) device.batteryLevel = *level;
    if (const auto seconds = property<qlonglong>(properties, "TimeToEmpty")) device.timeToEmpty = *seconds;
    if (const auto seconds = property<qlonglong>(properties, "TimeToFull")) device.timeToFull = *seconds;
}

}  // namespace velmora
