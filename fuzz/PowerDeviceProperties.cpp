#include "platform/qt/services/PowerDeviceProperties.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <cstring>

// Entries of a name, a type and eight bytes of value or a text of some bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const QStringList names = {"Type",       "Model",        "PowerSupply", "IsPresent",
                                      "Percentage", "BatteryLevel", "TimeToEmpty", "TimeToFull"};
    QVariantMap properties;
    std::size_t offset = 0;
    while (size - offset >= 10) {
        const QString name = names[data[offset] % names.size()];
        const int type = data[offset + 1] % 7;
        std::uint64_t bits = 0;
        std::memcpy(&bits, data + offset + 2, sizeof bits);
        double number = 0;
        std::memcpy(&number, &bits, sizeof number);
        offset += 10;
        switch (type) {
            case 0:
                properties[name] = static_cast<uint>(bits);
                break;
            case 1:
                properties[name] = static_cast<qlonglong>(bits);
                break;
            case 2:
                properties[name] = number;
                break;
            case 3:
                properties[name] = (bits & 1) != 0;
                break;
            case 4: {
                const std::size_t length = std::min<std::size_t>(bits & 0xFF, size - offset);
                properties[name] = QString::fromUtf8(reinterpret_cast<const char*>(data + offset),
                                                     static_cast<qsizetype>(length));
                offset += length;
                break;
            }
            case 5:
                properties[name] = QStringList{name};
                break;
            default:
                properties[name] = QVariant();
        }
    }
    velmora::PowerDevice device;
    velmora::takePowerDeviceProperties(device, properties);
    return 0;
}
