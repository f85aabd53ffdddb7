#pragma once

#include <QHash>
#include <QPixmap>
#include <QString>

#include <cstdint>

namespace velmora {

class ProcessIconSource;

/// The small pictures before the names of processes. A picture is kept by what it is called, not by process,
/// so that a new process of a known program costs nothing. Main thread only.
class ProcessIcons {
public:
    /// In points, each way.
    static constexpr int kSide = 13;
    /// How many pictures are kept.
    static constexpr qsizetype kMostKept = 64;

    explicit ProcessIcons(ProcessIconSource& source);

    /// The picture of the application that the process belongs to, in the desktop's icon theme or in a file
    /// of its own; else the theme's for programs, else our own symbol. Never null, never larger than `kSide`.
    QPixmap processIcon(std::int32_t pid, double ratio);

    qsizetype keptCount() const { return m_kept.size(); }

private:
    QPixmap picture(const QString& name, double ratio) const;

    ProcessIconSource& m_source;
    QHash<QString, QPixmap> m_kept;
};

}  // namespace velmora
