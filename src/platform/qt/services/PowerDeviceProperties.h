#pragma once

#include "platform/PowerDeviceService.h"

#include <QVariantMap>

namespace velmora {

/// Takes in properties of the interface org.freedesktop.UPower.Device, all of them or those that changed. One
/// of another type than the interface says is passed over; a name that no device can have becomes none.
void takePowerDeviceProperties(PowerDevice& device, const QVariantMap& properties);

}  // namespace velmora
