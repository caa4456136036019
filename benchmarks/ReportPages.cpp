// A staff list of maximal length as a PDF, compared with a QPainter loop that draws the same number of pages with as
// many texts of the same kind. Each side runs in a separate process, to measure its peak memory. Argument: number of
// rows (default 32753).

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

#include "report-host/layout/PreparedReport.h"
#include "setup/schema/DatabaseFileWriter.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kPairs = 3, kRowsPerPage = 23, kTextsPerRow = 18, kTextsPerHead = 24;

struct Cost {
    double seconds = 0;    // of processor time, which depends less on other programs than elapsed time
    double megabytes = 0;  // peak memory
    int pages = 0;
};

void FillRows(const QString& path, int count) {
    setup::DatabaseFileWriter store(path, DatabaseKind::Report);
    {
        setup::TableWriter rows(store, u"要員名簿照会"_s);
        for (int i = 1; i <= count; ++i)
            rows.Set(u"運用事業所名"_s, u"本社"_s)
                .Set(u"選択条件"_s, u"在籍区分：全て  表示順：コード順"_s)
                .Set(u"コード"_s, u"%1"_s.arg(i, 5, 10, QChar(u'0')))
                .Set(u"氏名"_s, u"佐藤　一郎%1"_s.arg(i))
                .Set(u"カナ"_s, u"サトウ　イチロウ"_s)
                .Set(u"性別区分名"_s, i % 2 ? u"男"_s : u"女"_s)
                .Set(u"郵便番号"_s, u"100-%1"_s.arg(i % 10000, 4, 10, QChar(u'0')))
                .Set(u"住所A"_s, u"東京都千代田区"_s)
                .Set(u"住所B"_s, u"丸の内%1－８－７"_s.arg(i % 900))
                .Set(u"住所C"_s, u"見本ビル%1階"_s.arg(i % 70))
                .Set(u"電話"_s, u"03-5555-%1"_s.arg(i % 10000, 4, 10, QChar(u'0')))
                .Set(u"携帯電話"_s, u"090-5555-%1"_s.arg(i % 10000, 4, 10, QChar(u'0')))
                .Set(u"EMAIL"_s, u"ichiro%1@example.co.jp"_s.arg(i))
                .Set(u"事業所名"_s, u"名古屋支店"_s)
                .Set(u"部門名"_s, u"情報システム部"_s)
                .Set(u"セクション名"_s, u"開発課"_s)
                .Set(u"役職名"_s, u"係長"_s)
                .Set(u"在籍区分名"_s, u"在籍"_s)
                .Set(u"社員区分名"_s, u"契約社員"_s)
                .Set(u"表示生年月日"_s, u"昭和%1年04月01日"_s.arg(i % 60 + 1, 2, 10, QChar(u'0')))
                .Set(u"表示入社日付"_s, u"平成%1年04月01日"_s.arg(i % 30 + 1, 2, 10, QChar(u'0')))
                .Add();
    }
    store.Commit();
}

int ByTheForm(const QString& folder) {
    const auto report = PrepareReport(folder + u"/forms.accdb"_s, u"要員名簿照会"_s);
    WritePdf(*report, folder + u"/form.pdf"_s);
    return report->PageCount();
}

/// Texts at fixed positions: no template, no query, no text fitting.
int ByHand(const QString& folder, int pages) {
    QPdfWriter writer(folder + u"/bare.pdf"_s);
    writer.setResolution(1200);
    writer.setPageSize(QPageSize(QSizeF(297, 210), QPageSize::Millimeter, u"bare"_s, QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    QPainter painter(&writer);
    painter.scale(1200 / 25.4, 1200 / 25.4);
    QFont font(u"IPAMincho"_s);
    font.setPixelSize(3);
    painter.setFont(font);
    const QStringList texts{u"佐藤　一郎"_s, u"昭和55年04月01日"_s, u"東京都千代田区丸の内９－８－７"_s,
                            u"03-5555-0100"_s};
    for (int page = 0; page < pages; ++page) {
        if (page > 0) writer.newPage();
        int text = page;
        for (int i = 0; i < kTextsPerHead; ++i)
            painter.drawText(QPointF(10 + i * 11, 20), texts[text++ % texts.size()]);
        for (int row = 0; row < kRowsPerPage; ++row)
            for (int i = 0; i < kTextsPerRow; ++i)
                painter.drawText(QPointF(10 + i * 15, 40 + row * 7), texts[text++ % texts.size()]);
    }
    return pages;
}

/// Runs the job in a child process.
Cost Measured(const std::function<int()>& work) {
    int ends[2];
    if (pipe(ends) != 0) return {};
    const pid_t child = fork();
    if (child == 0) {
        int argc = 1;
        char name[] = "report-pages";
        char* argv[] = {name, nullptr};
        const QApplication application(argc, argv);
        Cost cost;
        cost.pages = work();
        struct rusage usage;
        getrusage(RUSAGE_SELF, &usage);
        for (const timeval& part : {usage.ru_utime, usage.ru_stime})
            cost.seconds += static_cast<double>(part.tv_sec) + static_cast<double>(part.tv_usec) / 1e6;
        cost.megabytes = static_cast<double>(usage.ru_maxrss) / 1024;
        _exit(write(ends[1], &cost, sizeof cost) == sizeof cost ? 0 : 1);
    }
    close(ends[1]);
    Cost cost;
    if (read(ends[0], &cost, sizeof cost) != sizeof cost) cost = {};
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return cost;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void MakeFiles(const QString& folder, int rows) {
    QFile::remove(folder + u"/work.accdb"_s);
    QFile::remove(folder + u"/forms.accdb"_s);
    FillRows(folder + u"/work.accdb"_s, rows);
    setup::WriteStandardTemplates(folder + u"/forms.accdb"_s, folder + u"/work.accdb"_s);
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const int rows = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 32753;
    const QTemporaryDir folder;
    MakeFiles(folder.path(), rows);
    std::vector<double> forms, bares, ratios;
    Cost form, bare;
    for (int pair = 0; pair < kPairs; ++pair) {
        form = Measured([&] { return ByTheForm(folder.path()); });
        bare = Measured([&] { return ByHand(folder.path(), form.pages); });
        forms.push_back(form.seconds);
        bares.push_back(bare.seconds);
        ratios.push_back(form.seconds / bare.seconds);
    }
    std::printf("%d rows, %d pages (median of %d pairs)\n", rows, form.pages, kPairs);
    std::printf("form:  %.2f s, %.0f pages a second, peak %.0f MB\n", Median(forms), form.pages / Median(forms),
                form.megabytes);
    std::printf("bare:  %.2f s, %.0f pages a second, peak %.0f MB\n", Median(bares), bare.pages / Median(bares),
                bare.megabytes);
    std::printf("ratio: %.2f\n", Median(ratios));
    MakeFiles(folder.path(), rows / 10);
    const Cost tenth = Measured([&] { return ByTheForm(folder.path()); });
    const Cost bareTenth = Measured([&] { return ByHand(folder.path(), tenth.pages); });
    std::printf("growth from %d to %d pages: form %.1f MB, bare %.1f MB\n", tenth.pages, form.pages,
                form.megabytes - tenth.megabytes, bare.megabytes - bareTenth.megabytes);
    return form.pages > 0 ? 0 : 1;
}
