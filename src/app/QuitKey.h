#pragma once

#include <QObject>

namespace velmora {

/// Ends the program at Control-Q in any of its windows: there is no menu bar that could hold the entry. A
/// panel is a kind of menu, and has no such key. Text fields bring the other editing keys themselves.
class QuitKey final : public QObject {
public:
    QuitKey();
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace velmora
