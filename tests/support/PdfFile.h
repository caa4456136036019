#pragma once

#include <QImage>
#include <QList>
#include <QRectF>
#include <QString>
#include <QStringList>

/// A word of a PDF as located by poppler, in millimetres from the page's upper left corner.
struct PdfWord {
    int page;  ///< 0-based
    QString text;
    QRectF place;
};

/// A PDF file read by poppler. Each member throws std::runtime_error if poppler rejects the file.
class PdfFile {
  public:
    explicit PdfFile(const QString& path) : path_(path) {}

    QList<PdfWord> Words() const;
    /// Words of one page in their order, joined by blanks.
    QString Text(int page) const;
    /// The words of one page that contain the text.
    QList<PdfWord> Find(int page, const QString& text) const;
    struct Font {
        QString name;
        bool embedded;
    };
    QList<Font> Fonts() const;
    int Pages() const;
    /// Grey rendering of a page at `kDotsPerMillimetre`.
    QImage Picture(int page) const;
    static constexpr int kDotsPerMillimetre = 10;

  private:
    QString path_;
};

/// Bounding box of the pixels darker than light grey within `where`, in millimetres; empty without any.
QRectF InkWithin(const QImage& picture, const QRectF& where);
