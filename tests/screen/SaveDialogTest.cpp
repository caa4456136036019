#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>
#include <QtTest/QTest>

#include <functional>

#include "screen/SuiteApplication.h"

using namespace Qt::StringLiterals;

namespace {

const QString kFilter = u"テキスト ファイル (*.txt)|*.txt|CSV ファイル (*.csv)|*.csv"_s;

/// Answers the save dialog by keys.
class SaveUser {
  public:
    explicit SaveUser(std::function<void(QFileDialog&, QLineEdit&)> callback) : callback_(std::move(callback)) {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Poll(); });
        timer_.start(10);
    }
    bool used = false;

    static void Accept(QLineEdit& name) { QTest::keyClick(&name, Qt::Key_Return); }
    static void Replace(QLineEdit& name, const QString& text) {
        QTest::keyClick(&name, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&name, text);
    }

  private:
    void Poll() {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) return;
        timer_.stop();
        used = true;
        callback_(*dialog, *dialog->findChild<QLineEdit*>(u"fileNameEdit"_s));
    }

    QTimer timer_;
    std::function<void(QFileDialog&, QLineEdit&)> callback_;
};

/// Sets the home folder while it exists.
class Home {
  public:
    explicit Home(const QString& folder) : kept_(qgetenv("HOME")), config_(qgetenv("XDG_CONFIG_HOME")) {
        qputenv("HOME", folder.toUtf8());
        qputenv("XDG_CONFIG_HOME", (folder + u"/.config"_s).toUtf8());
    }
    ~Home() {
        qputenv("HOME", kept_);
        config_.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", config_);
    }
    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;

  private:
    QByteArray kept_, config_;
};

class SaveDialog : public testing::Test {
  protected:
    std::optional<QString> Ask(const QString& name, std::function<void(QFileDialog&, QLineEdit&)> callback) {
        const SaveUser user(std::move(callback));
        const auto chosen = dialogs.ShowSave({kFilter, 2, name});
        EXPECT_TRUE(user.used);
        return chosen;
    }
    QTemporaryDir folder;
    WidgetDialogs dialogs;
};

}  // namespace

TEST_F(SaveDialog, ComboBoxesHaveAccessibleNames) {
    QStringList names;
    Ask(folder.filePath(u"a.csv"_s), [&](QFileDialog& dialog, QLineEdit&) {
        for (const QString& list : {u"lookInCombo"_s, u"fileTypeCombo"_s})
            names << dialog.findChild<QComboBox*>(list)->accessibleName();
        dialog.reject();
    });
    EXPECT_EQ(names, QStringList({u"Look in"_s, u"Files of type"_s}));
}

TEST_F(SaveDialog, ProposesTheNameInItsFolderWithTheSecondKind) {
    const QString path = folder.filePath(u"要員名簿照会.CSV"_s);
    EXPECT_EQ(Ask(path,
                  [&](QFileDialog& dialog, QLineEdit& name) {
                      EXPECT_EQ(dialog.directory().path(), folder.path());
                      EXPECT_EQ(name.text(), u"要員名簿照会.CSV"_s);
                      EXPECT_EQ(dialog.nameFilters(),
                                QStringList({u"テキスト ファイル (*.txt)"_s, u"CSV ファイル (*.csv)"_s}));
                      EXPECT_EQ(dialog.selectedNameFilter(), u"CSV ファイル (*.csv)"_s);
                      SaveUser::Accept(name);
                  }),
              path);
}

TEST_F(SaveDialog, ShowsFilesInJapaneseWithUncutColumns) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"控え"_s));
    Ask(folder.filePath(u"a.csv"_s), [](QFileDialog& dialog, QLineEdit&) {
        const auto* files = dialog.findChild<QTreeView*>(u"treeView"_s);
        const auto cell = [&](int column) { return files->model()->index(0, column, files->rootIndex()); };
        EXPECT_TRUE(QTest::qWaitFor([&] { return cell(2).data().toString() == u"フォルダー"_s; }));
        const auto uncut = [&](int column) {
            return files->columnWidth(column) > files->fontMetrics().horizontalAdvance(cell(column).data().toString());
        };
        EXPECT_TRUE(QTest::qWaitFor([&] { return uncut(2) && uncut(3); }));
        EXPECT_EQ(files->horizontalScrollBar()->maximum(), 0);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
}

TEST_F(SaveDialog, CancelGivesNothing) {
    EXPECT_EQ(Ask(folder.filePath(u"a.csv"_s),
                  [](QFileDialog& dialog, QLineEdit&) { QTest::keyClick(&dialog, Qt::Key_Escape); }),
              std::nullopt);
}

TEST_F(SaveDialog, AppendsNoSuffixAndAsksNothingAboutAnExistingFile) {
    QFile existing(folder.filePath(u"old"_s));
    ASSERT_TRUE(existing.open(QIODevice::WriteOnly));
    EXPECT_EQ(Ask(folder.filePath(u"a.csv"_s),
                  [](QFileDialog&, QLineEdit& name) {
                      SaveUser::Replace(name, u"old"_s);
                      SaveUser::Accept(name);
                  }),
              folder.filePath(u"old"_s));
}

TEST_F(SaveDialog, AFolderStillToBeMadeIsProposedInFull) {
    const QString path = folder.filePath(u"new/sub/a.csv"_s);
    EXPECT_EQ(Ask(path,
                  [&](QFileDialog& dialog, QLineEdit& name) {
                      EXPECT_EQ(dialog.directory().path(), folder.path());
                      EXPECT_EQ(name.text(), path);
                      SaveUser::Accept(name);
                  }),
              path);
}

TEST_F(SaveDialog, ANameWithoutAFolderIsProposedAmongTheUsersOwnFiles) {
    const Home home(folder.path());
    // An empty office folder gives "/name"; also a name without a folder.
    for (const QString& name : {u"\\要員名簿照会.CSV"_s, u"要員名簿照会.CSV"_s})
        for (const QString& own : {QString(), u"/Documents"_s}) {
            ASSERT_TRUE(QDir().mkpath(folder.path() + own));
            EXPECT_EQ(Ask(name,
                          [&](QFileDialog& dialog, QLineEdit& edit) {
                              EXPECT_EQ(dialog.directory().path(), folder.path() + own);
                              EXPECT_EQ(edit.text(), u"要員名簿照会.CSV"_s);
                              SaveUser::Accept(edit);
                          }),
                      folder.path() + own + u"/要員名簿照会.CSV"_s);
            QDir().rmpath(folder.path() + u"/Documents"_s);
        }
}
