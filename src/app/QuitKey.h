#pragma once

#include <QObject>

namespace velmora {

/// Ends the program at Control-Q in any of its windows: there is no menu bar that could hold the entry. Text
/// fields bring the other editing keys themselves.
class QuitKey final : public QObject {
public:
    QuitKey();
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace velmora
