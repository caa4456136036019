#include "screen/msgお待ち.h"

#include <QPointer>

#include "platform/Services.h"
#include "screen/Fonts.h"
#include "screen/Label.h"
#include "screen/Panel.h"

using namespace Qt::StringLiterals;

namespace {
QPointer<msgお待ち>& Dialog() {
    static QPointer<msgお待ち> dialog;
    return dialog;
}
}  // namespace

msgお待ち::msgお待ち() : Form(u"msgお待ち"_s) {
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    setWindowTitle(u"要員名簿照会"_s);
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto* title = new Panel(*this, *this, u"itm_ttl"_s, -1, u"要員名簿照会"_s);
    title->setFont(SuiteFont(SuiteFace::PGothic, 12));
    title->SetBackColor(kCaptionColor);
    title->setGeometry(8, 8, 324, 32);
    auto* message = new Label(*this, *this, u"lab_msg"_s, -1, u"しばらくお待ちください。"_s);
    message->setFont(SuiteFont(SuiteFace::PGothic, 12));
    message->SetPlain();
    message->setAlignment(Qt::AlignCenter);
    message->setGeometry(8, 52, 324, 36);
    setFixedSize(340, 104);
    Load = [this] { SetWindowTop(*this); };
}

void SetWindowTop(QWidget& window) { window.raise(); }

void ShowWaitDialog() {
    if (Dialog().isNull()) Dialog() = new msgお待ち;
    Dialog()->ShowModeless();
    platform::LetEventsThrough();
}

void UnloadWaitDialog() {
    if (Dialog().isNull()) return;
    Dialog()->UnloadForm();
    Dialog().clear();
}
