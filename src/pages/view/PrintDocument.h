// A document that is made piece by piece and printed, never shown. Its pages are laid out when their
// number is asked for, not while it grows.
#pragma once

#include <QString>
#include <QTextCursor>
#include <QTextDocument>
#include <optional>

class QPagedPaintDevice;

// What sets a piece off from the plain text; what is not set stays plain.
struct PieceLook {
  bool Bold = false;
  std::optional<double> Points;
  std::optional<int> Colour;  // 0xBBGGRR
};

class PrintDocument {
 public:
  PrintDocument();

  // The size of the sheets, twips.
  void SetPageSize(double width, double height);

  // Adds a piece at the end. A paragraph ends with line feed and carriage return, in that order.
  void Append(const QString& text, const PieceLook& look = {});

  // Everything that was added. Its paragraph ends are single line feeds.
  QString Text() const { return document_.toPlainText(); }
  // The look of the character at a position of that text.
  PieceLook LookAt(int position) const;

  int PageCount() const { return document_.pageCount(); }

  // Paints the pages, counted from 1, on sheets as large as the document's; on others they are shrunk or
  // grown to fit. What lies outside the document is left out. An error when the device takes no pages.
  void Print(QPagedPaintDevice& device, int fromPage, int toPage) const;

 private:
  QTextDocument document_;
  QTextCursor end_;
};
