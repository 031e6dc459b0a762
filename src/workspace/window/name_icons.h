#pragma once

#include <QAbstractFileIconProvider>
#include <QIcon>

namespace corvane {

/// Icons and kinds of files in a chooser, told by their names. The toolkit's own opens each file to guess what it is,
/// and there are files that are never read to an end. Make it on the interface thread; it may be asked on any other.
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
