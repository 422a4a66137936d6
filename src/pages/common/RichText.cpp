#include "pages/common/RichText.h"

#include <QTextDocument>

RichPage::RichPage() = default;
RichPage::RichPage(RichPage&&) noexcept = default;
RichPage& RichPage::operator=(RichPage&&) noexcept = default;
RichPage::~RichPage() = default;
