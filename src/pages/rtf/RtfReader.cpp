#include "pages/rtf/RtfReader.h"

#include <string_view>

#include "pages/common/PageBounds.h"
#include "pages/rtf/RtfParser.h"
#include "platform/RunTimeError.h"
#include "texts/Descriptions.h"

namespace {

// What may stand in front of the first brace: a UTF-8 mark and white space, left by editors.
std::string_view WithoutLead(const QByteArray& bytes) {
  std::string_view view(bytes.constData(), static_cast<size_t>(bytes.size()));
  if (view.starts_with("\xEF\xBB\xBF")) view.remove_prefix(3);
  const size_t start = view.substr(0, 256).find_first_not_of(" \t\r\n");
  return start == std::string_view::npos ? std::string_view() : view.substr(start);
}

}  // namespace

bool IsRtf(const QByteArray& bytes) {
  return WithoutLead(bytes).starts_with("{\\rtf");
}

RichPage ReadRtf(const QByteArray& bytes, const PageMetrics& metrics, const QString& what,
                 const std::function<void()>& goesOn) {
  if (!IsRtf(bytes)) throw RunTimeError(Describe("page-no-rich-text", what));
  return ReadBounded(
      metrics, [&](const PageMetrics& used) { return RtfParser(WithoutLead(bytes), used, goesOn).Read(); });
}
