// Part of Verbs.h: the verb `history`.
#include "setup/commands/Verbs.h"

#include <limits>

#include "setup/UsageError.h"
#include "setup/commands/HistoryRuns.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

/// The runs read from all sources so far, and the run printed last.
class HistoryView {
  public:
    HistoryView(QList<HistorySource> sources, QString user, QTextStream& out)
        : sources_(std::move(sources)), user_(std::move(user)), out_(out) {}

    /// Prints the `number`-th newest run, or all runs for 0.
    void PrintRuns(int number) {
        Read([](int, const HistoryRow&) {});
        const QList<int> order = runs_.ByTime();
        if (order.isEmpty()) out_ << u"履歴はまだありません。\n"_s;
        if (number > order.size() && number > 1) throw UsageError(u"実行は %1 件しかありません。"_s.arg(order.size()));
        for (qsizetype i = 0; i < order.size(); ++i) {
            const int fromNewest = static_cast<int>(order.size() - i);
            if (number == 0 || number == fromNewest) PrintRun(order[i], fromNewest);
        }
        out_.flush();
    }

    void PrintNewRows() {
        Read([this](int run, const HistoryRow& row) {
            if (run != lastPrinted_) {
                StartBlock(run);
                out_ << RunTitle(BeginsRun(row) ? u"新しい実行"_s : u"続き"_s, runs_.Runs()[run].rows.first()) << u'\n'
                     << RowHeading() << u'\n';
            }
            out_ << RowLine(row) << u'\n';
        });
        out_.flush();
    }

  private:
    template <typename Visitor>
    void Read(Visitor visit) {
        for (HistorySource& source : sources_)
            for (const HistoryRow& row : source.NewRows())
                if (user_.isEmpty() || row.user == user_) visit(runs_.Add(row), row);
    }

    void StartBlock(int run) {
        if (lastPrinted_ >= 0) out_ << u'\n';
        lastPrinted_ = run;
    }

    void PrintRun(int run, int number) {
        StartBlock(run);
        for (const QString& line : RunLines(runs_.Runs()[run], number)) out_ << line << u'\n';
    }

    QList<HistorySource> sources_;
    QString user_;
    QTextStream& out_;
    RunSorter runs_;
    int lastPrinted_ = -1;
};

}  // namespace

void ShowHistory(const Arguments& arguments, const Console& console) {
    const auto run = static_cast<int>(arguments.Number(option::kRun, 0, 1, std::numeric_limits<int>::max()));
    const QString user = arguments.Value(option::kUser);
    HistoryView view(HistorySources(arguments.Installation(), user), user, console.out);
    view.PrintRuns(run);
    if (!arguments.Has(option::kFollow)) return;
    while (console.waitForMore()) view.PrintNewRows();
}

}  // namespace setup
