// SPDX-License-Identifier: MIT
#include "dialogs/pickers/mBrowseFolder.hpp"

#include <QDir>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListView>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>

#include "desktop/QtValues.hpp"
#include "desktop/RunningEvents.hpp"
#include "platform/system/Files.hpp"
#include "shell/mMisc.hpp"

namespace mobrel {

namespace {

std::string browseStartPath;

/// A path in one line, short of its middle where the line is too short.
class PathLine final : public QLabel {
 public:
    using QLabel::QLabel;

    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

 protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, width());
        style()->drawItemText(&painter, rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                              shown, foregroundRole());
    }
};

class FolderDialog final : public QFileDialog {
 public:
    FolderDialog(QWidget* owner, const QString& title) : QFileDialog(owner, title) {
        setOption(DontUseNativeDialog);
        setFileMode(Directory);
        setOption(ShowDirsOnly);
        m_status.setObjectName("lblStatus");
        m_status.setTextFormat(Qt::PlainText);
        showStatus();
        connect(findChild<QLineEdit*>("fileNameEdit"), &QLineEdit::textChanged, this,
                [this] { noteSelection(); });
        // Queued, so that the view has followed. The dialog's own signal does not tell of Back and Forward.
        connect(
            findChild<QFileSystemModel*>(), &QFileSystemModel::rootPathChanged, this,
            [this] { selectOpenFolder(); }, Qt::QueuedConnection);
    }

    QString selectedFolder() const { return QDir::cleanPath(selectedFiles().constFirst()); }

    /// In place of a folder that is not there, starts at the user's own.
    void startAt(const QString& path) {
        setDirectory(QDir(path).exists() ? path : QDir::homePath());
        noteSelection();
    }

 private:
    /// Shows what is selected in place of the types of files, of which there is only one.
    void showStatus() {
        auto* const types = findChild<QWidget*>("fileTypeCombo");
        delete layout()->replaceWidget(types, &m_status);
        types->hide();
        setLabelText(FileType, "Selected:");
    }

    /// Qt leaves a name of the folder before there, which Choose would take or refuse.
    void selectOpenFolder() {
        findChild<QListView*>("listView")->clearSelection();
        findChild<QLineEdit*>("fileNameEdit")->clear();
        noteSelection();
    }

    /// What Choose would choose: with nothing selected it is the open folder itself.
    void noteSelection() {
        const QString selected = selectedFolder();
        if (!QDir(selected).exists()) return;  // a path that is being typed
        m_status.setText(selected);
        m_status.setToolTip("<p>" + selected.toHtmlEscaped() + "</p>");
        browseStartPath = selected.toStdString();
    }

    PathLine m_status;
};

}  // namespace

std::string BrowseForFolder(QWidget* owner, std::string_view title, std::string_view startPath) {
    // kept: one character, the root, counts as no start.
    if (startPath.size() > 1) {
        browseStartPath = startPath;
    } else if (browseStartPath.empty()) {
        browseStartPath = programFolder();
    }
    FolderDialog dialog(owner, qtText(title));
    dialog.startAt(qtText(browseStartPath));
    const RunningEvents running;
    if (dialog.exec() != QDialog::Accepted) return {};
    browseStartPath = dialog.selectedFolder().toStdString();
    return browseStartPath;
}

std::string AppPathSlash() {
    return AppFolder();
}

}  // namespace mobrel
