#include "report-host/preview/FontNotice.h"

#include <QDeadlineTimer>
#include <exception>

#include "report-host/layout/PreparedReport.h"
#include "report-host/render/FontAdvice.h"
#include "report-host/render/RenderWatch.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kStepTime = 20;      // milliseconds, too short to be noticed while turning pages
constexpr int kMostNamed = 3;      // characters; the tooltip has all of them
constexpr int kMostMissing = 200;  // a report in a script without a font would give thousands

}  // namespace

FontNotice::FontNotice(PreparedReport& report) : report_(report) {
    setObjectName(u"fontNotice"_s);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a long text must not widen the window
    hide();
    timer_.callOnTimeout(this, [this] { ReadPages(); });
    timer_.start(0);
}

void FontNotice::ReadPages() {
    if (RenderWatch::IsActive()) return;
    const QDeadlineTimer end(kStepTime);
    const qsizetype before = missing_.size();
    try {
        for (; page_ < report_.PageCount() && missing_.size() < kMostMissing && !end.hasExpired(); ++page_)
            for (const QString& character : report_.MissingCharacters(page_)) {
                if (missing_.isEmpty()) firstFound_ = page_;
                if (!missing_.contains(character)) missing_.append(character);
            }
    } catch (const std::exception&) {
        page_ = report_.PageCount();  // painting the page shows the reason
    }
    if (missing_.size() > before) ShowMissing();
    if (page_ >= report_.PageCount() || missing_.size() >= kMostMissing) timer_.stop();
}

void FontNotice::ShowMissing() {
    QStringList names;
    for (const QString& character : missing_) names.append(report::NameOfCharacter(character));
    const QString some = names.mid(0, kMostNamed).join(u'、') + (names.size() > kMostNamed ? u" ほか"_s : QString());
    const QString fonts = u"インストールする書体: "_s + report::FontsToInstall(missing_);
    setText(u"書体にない文字があります（%1 ページから）: %2　%3"_s.arg(firstFound_ + 1).arg(some, fonts));
    setToolTip(u"<p>%1</p><p>%2</p>"_s.arg(names.join(u'、'), fonts));
    show();
}
