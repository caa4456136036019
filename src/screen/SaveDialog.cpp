// Part of SuiteApplication.h: WidgetDialogs::ShowSave.

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
#include "screen/SuiteApplication.h"

namespace {

constexpr QSize kSize(800, 520);
constexpr int kPlaces = 140;
constexpr int kDateColumn = 3;

/// Qt's Japanese translation lacks this text.
class FileKinds : public QFileIconProvider {
  public:
    QString type(const QFileInfo& file) const override {
        return file.isDir() ? QStringLiteral("フォルダー") : QFileIconProvider::type(file);
    }
};

/// Converts "description|pattern|..." to Qt's name filters, whose description contains the wildcard pattern.
QStringList NameFilters(const QString& filter) {
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString pattern = u'(' + parts[i + 1] + u')';
        filters << (parts[i].endsWith(pattern) ? parts[i] : parts[i] + u' ' + pattern);
    }
    return filters;
}

/// The dialog's default size is too narrow and elides dates and names.
void WidenForColumns(QFileDialog& dialog) {
    dialog.resize(kSize);
    if (const auto* files = dialog.findChild<QTreeView*>(QStringLiteral("treeView")))
        files->header()->setSectionResizeMode(kDateColumn, QHeaderView::ResizeToContents);
    if (auto* parts = dialog.findChild<QSplitter*>(QStringLiteral("splitter")))
        parts->setSizes({kPlaces, kSize.width() - kPlaces});
}

/// Accessibility: without an accessible name a combo box reports only its entry.
void NameCombos(QFileDialog& dialog) {
    for (const QString& list : {QStringLiteral("lookIn"), QStringLiteral("fileType")}) {
        const auto* caption = dialog.findChild<QLabel*>(list + QStringLiteral("Label"));
        auto* combo = dialog.findChild<QComboBox*>(list + QStringLiteral("Combo"));
        if (caption != nullptr && combo != nullptr) combo->setAccessibleName(caption->text().remove(u':'));
    }
}

/// The user's documents folder, or the home folder on desktops that have not created one.
QString DocumentsFolder() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}

/// A name without a folder, or in the root because the office has configured no folder, is proposed in the documents
/// folder, since users may not write to the root.
QString ProposedPath(const QString& fileName) {
    const QString path = platform::NativePath(fileName);
    const bool inFolder = path.lastIndexOf(u'/') > 0;
    return inFolder ? path : DocumentsFolder() + u'/' + path.section(u'/', -1);
}

/// The folder of the path or its nearest existing parent.
QString NearestFolder(const QString& path) {
    QString folder = QFileInfo(path).absolutePath();
    while (!QDir(folder).exists()) folder = QFileInfo(folder).absolutePath();
    return folder;
}

/// If the folder does not exist yet, the whole path is proposed, so that the user sees where the file will be created.
void Propose(QFileDialog& dialog, const QString& fileName) {
    const QString path = ProposedPath(fileName);
    const QString folder = NearestFolder(path);
    dialog.setDirectory(folder);
    const bool here = QFileInfo(path).absolutePath() == folder;
    if (auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
        edit->setText(here ? QFileInfo(path).fileName() : path);
}

}  // namespace

// Not the desktop's native dialog, which asks before overwriting and may append a suffix.
std::optional<QString> WidgetDialogs::ShowSave(const platform::SaveQuestion& question) {
    FileKinds kinds;
    QFileDialog dialog(QApplication::activeWindow());
    dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
    dialog.setIconProvider(&kinds);
    WidenForColumns(dialog);
    dialog.setWindowTitle(QStringLiteral("名前を付けて保存"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    const QStringList filters = NameFilters(question.Filter);
    dialog.setNameFilters(filters);
    if (question.FilterIndex >= 1 && question.FilterIndex <= filters.size())
        dialog.selectNameFilter(filters[question.FilterIndex - 1]);
    NameCombos(dialog);
    Propose(dialog, question.FileName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return dialog.selectedFiles().first();
}
