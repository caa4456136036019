// Part of Verbs.h: the verb `history`.
#include "setup/commands/Verbs.h"

#include <QDateTime>
#include <algorithm>
#include <limits>

#include "platform/AtomicFile.h"
#include "setup/TerminalTable.h"
#include "setup/UsageError.h"
#include "setup/commands/HistoryText.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr long kWorkFailed = 1;
const QString kNoRuns = u"履歴はまだありません。\n"_s, kNoMatch = u"当てはまる履歴はありません。\n"_s;

/// Which runs are shown.
struct HistoryFilter {
    QString user{};            ///< empty: all
    int run = 0;               ///< counted from the newest; 0: all
    bool onlyErrors = false;   ///< runs with an error
    QString since{}, until{};  ///< time stamps; a run is shown if it has a row between them. Empty: no bound

    bool Takes(const HistoryRun& one) const {
        return std::any_of(one.rows.begin(), one.rows.end(), [this](const HistoryRow& row) {
            return (!onlyErrors || IsError(row)) && (since.isEmpty() || row.time >= since) &&
                   (until.isEmpty() || row.time <= until);
        });
    }
};

/// A run and its number, counted from the newest.
struct NumberedRun {
    int place;
    int number;
};

/// The runs read from all sources so far, and the run printed last.
class HistoryView {
  public:
    HistoryView(QList<HistorySource> sources, HistoryFilter filter, QTextStream& out)
        : sources_(std::move(sources)), filter_(std::move(filter)), out_(out) {}

    void PrintRuns() {
        for (const NumberedRun& run : ReadRuns(kNoRuns)) {
            StartBlock(run.place);
            const HistoryRun& rows = runs_.Runs()[run.place];
            const QStringList lines = filter_.onlyErrors ? ErrorLines(rows, run.number) : RunLines(rows, run.number);
            for (const QString& line : lines) out_ << line << u'\n';
        }
        out_.flush();
    }

    void PrintTable() {
        QList<QStringList> lines{RunCellsHeading()};
        for (const NumberedRun& run : ReadRuns(kNoRuns)) lines.append(RunCells(runs_.Runs()[run.place], run.number));
        if (lines.size() > 1) PrintAligned(lines, out_);
    }

    void WriteCsv(const QString& path) {
        QByteArray text = CsvHeading();
        int count = 0;
        for (const NumberedRun& run : ReadRuns({}))
            for (const HistoryRow& row : runs_.Runs()[run.place].rows) {
                if (filter_.onlyErrors && !IsError(row)) continue;
                text += CsvLine(row, run.number);
                ++count;
            }
        QString error;
        if (!platform::ReplaceFile(path, text, error))
            throw platform::RuntimeError(kWorkFailed, u"%1 に書き込めません。%2"_s.arg(path, error));
        out_ << u"%1 に %2 行を書き込みました。\n"_s.arg(path).arg(count);
    }

    void PrintNewRows() {
        Read([this](int run, const HistoryRow& row) {
            if (filter_.onlyErrors && !IsError(row)) return;
            if (run != lastPrinted_) {
                StartBlock(run);
                out_ << RunTitle(BeginsRun(row) ? u"新しい実行"_s : u"続き"_s, runs_.Runs()[run].rows.first()) << u'\n'
                     << RowHeading() << u'\n';
            }
            for (const QString& line : RowLines(row)) out_ << line << u'\n';
        });
        out_.flush();
    }

  private:
    template <typename Visitor>
    void Read(Visitor visit) {
        for (HistorySource& source : sources_)
            for (const HistoryRow& row : source.NewRows())
                if (filter_.user.isEmpty() || row.user == filter_.user) visit(runs_.Add(row), row);
    }

    /// The runs to show, oldest first. Without any, prints why.
    QList<NumberedRun> ReadRuns(const QString& none) {
        Read([](int, const HistoryRow&) {});
        const QList<int> order = runs_.ByTime();
        if (filter_.run > order.size() && filter_.run > 1)
            throw UsageError(u"実行は %1 件しかありません。"_s.arg(order.size()));
        QList<NumberedRun> chosen;
        for (qsizetype i = 0; i < order.size(); ++i) {
            const int number = static_cast<int>(order.size() - i);
            if ((filter_.run == 0 || filter_.run == number) && filter_.Takes(runs_.Runs()[order[i]]))
                chosen.append({.place = order[i], .number = number});
        }
        if (chosen.isEmpty() && !none.isEmpty()) out_ << (order.isEmpty() ? none : kNoMatch);
        return chosen;
    }

    void StartBlock(int run) {
        if (lastPrinted_ >= 0) out_ << u'\n';
        lastPrinted_ = run;
    }

    QList<HistorySource> sources_;
    HistoryFilter filter_;
    QTextStream& out_;
    RunSorter runs_;
    int lastPrinted_ = -1;
};

/// A date with or without a time as a time stamp; `rest` completes it. Empty if the option is not given.
QString StampFrom(const Arguments& arguments, QStringView option, const QString& rest) {
    if (!arguments.Has(option)) return {};
    QString digits;
    for (const QChar unit : arguments.Value(option))
        if (unit >= u'0' && unit <= u'9')
            digits += unit;
        else if (!u"-/: T"_s.contains(unit))
            digits += u'x';  // makes it invalid
    const QString stamp = digits + rest.mid(digits.size() - 8);
    const bool whole = digits.size() == 8 || digits.size() == 12 || digits.size() == 14;
    if (!whole || !QDateTime::fromString(stamp, u"yyyyMMddHHmmss"_s).isValid())
        throw UsageError(
            u"オプション %1 には 2026-11-21 か \"2026-11-21 09:30\" の形で日時を指定してください。"_s.arg(option));
    return stamp.first(8) + u' ' + stamp.sliced(8);
}

HistoryFilter FilterFrom(const Arguments& arguments) {
    return {.user = arguments.Value(option::kUser),
            .run = static_cast<int>(arguments.Number(option::kRun, 0, 1, std::numeric_limits<int>::max())),
            .onlyErrors = arguments.Has(option::kErrors),
            .since = StampFrom(arguments, option::kSince, u"000000"_s),
            .until = StampFrom(arguments, option::kUntil, u"235959"_s)};
}

void CheckOptions(const Arguments& arguments) {
    const int forms = arguments.Has(option::kShort) + arguments.Has(option::kCsv) + arguments.Has(option::kFollow);
    if (forms > 1) throw UsageError(u"--short、--csv、--follow は一つだけ指定してください。"_s);
}

}  // namespace

void ShowHistory(const Arguments& arguments, const Console& console) {
    CheckOptions(arguments);
    const HistoryFilter filter = FilterFrom(arguments);
    HistoryView view(HistorySources(arguments.Installation(), filter.user), filter, console.out);
    if (arguments.Has(option::kShort)) return view.PrintTable();
    if (arguments.Has(option::kCsv)) return view.WriteCsv(arguments.Value(option::kCsv));
    view.PrintRuns();
    if (!arguments.Has(option::kFollow)) return;
    while (console.waitForMore()) view.PrintNewRows();
}

}  // namespace setup
