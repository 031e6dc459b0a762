#pragma once

#include <QAbstractFileIconProvider>
#include <QIcon>

namespace corvane {

/// Provides icons and types for files in a chooser, from their names alone. The toolkit's own provider opens each file
/// to guess its type, and some files never end. Create it on the interface thread; it may be used on any thread.
class NameIcons : public QAbstractFileIconProvider {
public:
    NameIcons();

    [[nodiscard]] QIcon icon(IconType type) const override;
    [[nodiscard]] QIcon icon(const QFileInfo& file) const override;
    [[nodiscard]] QString type(const QFileInfo& file) const override;

private:
    QIcon folder_;
    QIcon file_;
    QIcon drive_;
    QIcon computer_;
};

} // namespace corvane
