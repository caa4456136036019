#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSplitter>
#include <QStandardPaths>
#include <QStringList>
#include <QTreeView>

#include "platform/FileSystem.h"
#include "screen/WidgetDialogs.h"

namespace {

constexpr QSize kSize(800, 520);
constexpr int kPlaces = 140;
constexpr int kDateColumn = 3;

/// Qt's Japanese texts lack this one.
class FileKinds : public QFileIconProvider {
  public:
    QString type(const QFileInfo& file) const override {
        return file.isDir() ? QStringLiteral("フォルダー") : QFileIconProvider::type(file);
    }
};

/// "text (*.txt)" and "*.txt" in turn become Qt's kinds, whose description carries the pattern.
QStringList NameFilters(const QString& filter) {
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString pattern = u'(' + parts[i + 1] + u')';
        filters << (parts[i].endsWith(pattern) ? parts[i] : parts[i] + u' ' + pattern);
    }
    return filters;
}

/// By itself the dialog comes up too narrow for its columns and places, and cuts dates and names.
void MakeRoomForColumns(QFileDialog& dialog) {
    dialog.resize(kSize);
    if (const auto* files = dialog.findChild<QTreeView*>(QStringLiteral("treeView")))
        files->header()->setSectionResizeMode(kDateColumn, QHeaderView::ResizeToContents);
    if (auto* parts = dialog.findChild<QSplitter*>(QStringLiteral("splitter")))
        parts->setSizes({kPlaces, kSize.width() - kPlaces});
}

/// A list of entries tells assistive tools its entry, and what the entry is for only where it has a name.
void NameLists(QFileDialog& dialog) {
    for (const QString& list : {QStringLiteral("lookIn"), QStringLiteral("fileType")}) {
        const auto* caption = dialog.findChild<QLabel*>(list + QStringLiteral("Label"));
        auto* combo = dialog.findChild<QComboBox*>(list + QStringLiteral("Combo"));
        if (caption != nullptr && combo != nullptr) combo->setAccessibleName(caption->text().remove(u':'));
    }
}

/// Where the user keeps his documents. Not every desktop has made a folder for them.
QString OwnFolder() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}

/// A name in no folder, or in the root as where the office has chosen none for its files, is proposed among the user's
/// own files: in the root he may not write.
QString ProposedPath(const QString& fileName) {
    const QString path = platform::NativePath(fileName);
    const bool inFolder = path.lastIndexOf(u'/') > 0;
    return inFolder ? path : OwnFolder() + u'/' + path.section(u'/', -1);
}

/// The folder of the proposed name, or the nearest one around it that exists.
QString NearestFolder(const QString& path) {
    QString folder = QFileInfo(path).absolutePath();
    while (!QDir(folder).exists()) folder = QFileInfo(folder).absolutePath();
    return folder;
}

/// Where the folder is still to be made the whole path is proposed, so that the user sees where the file goes.
void Propose(QFileDialog& dialog, const QString& fileName) {
    const QString path = ProposedPath(fileName);
    const QString folder = NearestFolder(path);
    dialog.setDirectory(folder);
    const bool here = QFileInfo(path).absolutePath() == folder;
    if (auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
        edit->setText(here ? QFileInfo(path).fileName() : path);
}

}  // namespace

// Qt's own dialog and not the desktop's: those ask before they overwrite, and some append a suffix.
std::optional<QString> WidgetDialogs::ShowSave(const platform::SaveQuestion& question) {
    FileKinds kinds;
    QFileDialog dialog(QApplication::activeWindow());
    dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
    dialog.setIconProvider(&kinds);
    MakeRoomForColumns(dialog);
    dialog.setWindowTitle(QStringLiteral("名前を付けて保存"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    const QStringList filters = NameFilters(question.Filter);
    dialog.setNameFilters(filters);
    if (question.FilterIndex >= 1 && question.FilterIndex <= filters.size())
        dialog.selectNameFilter(filters[question.FilterIndex - 1]);
    NameLists(dialog);
    Propose(dialog, question.FileName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return dialog.selectedFiles().first();
}

