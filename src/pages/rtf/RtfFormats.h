// Turns the properties of an RTF page into the formats of a document, each made once.
#pragma once

#include <QHash>
#include <QSize>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextImageFormat>
#include <map>
#include <unordered_map>
#include <utility>
#include <vector>

#include "pages/common/PageLink.h"
#include "pages/common/RichText.h"
#include "pages/rtf/RtfHeader.h"
#include "pages/rtf/RtfModel.h"

class RtfFormats {
 public:
  // Both must outlive the formats.
  RtfFormats(const RtfHeader& header, const PageMetrics& metrics) : header_(header), metrics_(metrics) {}

  // Numbers a link; properties refer to it by that number, from 1.
  int AddLink(PageLink link);

  // The number of the format of these properties.
  int NumberOf(const RtfCharProps& props);
  // The number of a format for one picture or object in the line.
  int AddInline(const QTextCharFormat& format);

  // The number of a format that also draws what leads to a tab.
  int NumberWithLeader(int number, RtfLeader leader);

  const QTextCharFormat& CharFormat(int number) const { return formats_[static_cast<size_t>(number)]; }
  const QTextBlockFormat& BlockFormat(const RtfParaProps& props) const;  // good until the next call

  // The tabs of a paragraph in order, twips from where its first line begins.
  static QList<RtfTab> StopsOf(const RtfParaProps& props);
  // Twips.
  static int SpaceBefore(const RtfParaProps& props);
  static int SpaceAfter(const RtfParaProps& props);

  const PageMetrics& Metrics() const { return metrics_; }
  const RtfHeader& Header() const { return header_; }

 private:
  struct PropsHash {
    size_t operator()(const RtfCharProps& props) const;
  };

  QTextCharFormat MakeCharFormat(const RtfCharProps& props) const;
  void SetFont(QTextCharFormat& format, const RtfCharProps& props) const;
  void SetDecoration(QTextCharFormat& format, const RtfCharProps& props) const;
  void SetLink(QTextCharFormat& format, const RtfCharProps& props) const;
  void SetTabs(QTextBlockFormat& format, const RtfParaProps& props) const;
  QTextBlockFormat MakeBlockFormat(const RtfParaProps& props) const;

  const RtfHeader& header_;
  const PageMetrics& metrics_;
  std::vector<PageLink> links_;
  std::vector<QTextCharFormat> formats_;
  std::unordered_map<RtfCharProps, int, PropsHash> numbers_;
  std::map<std::pair<int, RtfLeader>, int> leaders_;
  RtfCharProps lastProps_;
  int lastNumber_ = -1;
  int firstNumber_ = -1;       // of the first that is no link's, where there is one
  bool hasLinkFirst_ = false;  // there is none yet
  mutable RtfParaProps lastParagraph_;
  mutable QTextBlockFormat lastBlock_;
  mutable bool hasLastBlock_ = false;
};
