#pragma once

#include <QLabel>
#include <QStringList>
#include <QTimer>

class PreparedReport;

/// Label that names the characters of a report that no installed font has, and the fonts to install. Reads the pages in
/// short steps between other events, and is hidden until such a character is found.
class FontNotice : public QLabel {
  public:
    /// `report` must outlive the object.
    explicit FontNotice(PreparedReport& report);

  private:
    void ReadPages();
    void ShowMissing();

    PreparedReport& report_;
    QTimer timer_;
    int page_ = 0;        ///< the next page to read
    int firstFound_ = 0;  ///< the first page with such a character
    QStringList missing_;
};
