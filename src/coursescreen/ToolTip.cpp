#include "coursescreen/ToolTip.h"

#include <QFontMetricsF>
#include <QPainter>

#include "platform/forms/DevicePixels.h"
#include "platform/forms/Font.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/Screen.h"

namespace {

constexpr int kRest = 700;        // ms
constexpr double kDistance = 40;  // twips between control and tip
constexpr double kPoints = 9;     // of the text
constexpr int kEdge = 2;          // pixels above and below the text
constexpr int kBack = 0xC0FFFF, kText = 0x000000, kBorder = 0x999999;

}  // namespace

// The box on which the text is printed. The mouse goes through it: it lies over the controls, and the
// pointer on it is on them.
class TipBox final : public PictureBox {
 public:
  explicit TipBox(QWidget* container) : PictureBox(container, QStringLiteral("ToolTip")) {
    setFont(Arial(kPoints));
    SetBackColor(kBack);
    SetForeColor(kText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    SetVisible(false);
  }

  void Print(const QString& text) {
    text_ = text;
    SetAccessibleName(text.trimmed());
    update();
  }

  // Twips.
  double TextWidth(const QString& text) const {
    return Screen::TwipsX(QFontMetricsF(font()).horizontalAdvance(text));
  }
  double TextHeight() const { return Screen::TwipsY(fontMetrics().height() + 2 * kEdge); }

 protected:
  void paintEvent(QPaintEvent* event) override {
    PictureBox::paintEvent(event);
    QPainter painter(this);
    DrawFrame(painter, rect(), Screen::Colour(kBorder));
    painter.setPen(Screen::Colour(ForeColor()));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, text_);
  }

 private:
  QString text_;
};

ToolTip::ToolTip(Form& form, PictureBox* container)
    : container_(container),
      toolTip_(new TipBox(container)),
      toolTipTimer_(&form, QStringLiteral("ToolTipTimer")) {
  toolTipTimer_.SetInterval(kRest);
  toolTipTimer_.Tick = [this] { ToolTipTimer_Timer(); };
}

void ToolTip::ShowToolTip(const Control& control, const QString& text) {
  const QString blank(QLatin1Char(' '));
  toolTip_->Print(blank + text + blank);
  const double width = toolTip_->TextWidth(blank + blank + blank + text), height = toolTip_->TextHeight();
  const double below = control.Top() + control.Height() + kDistance;
  const double above = control.Top() - kDistance - height;
  const double fromRight = control.Left() + control.Width() - width;
  toolTip_->Move(control.Left() + width < container_->Width() ? control.Left() : fromRight,
                 below + height < container_->Height() ? below : above, width, height);
  toolTipTimer_.SetEnabled(true);
}

void ToolTip::HideToolTip() {
  toolTip_->SetVisible(false);
  toolTip_->lower();
  toolTipTimer_.SetEnabled(false);
}

void ToolTip::ToolTipTimer_Timer() {
  toolTipTimer_.SetEnabled(false);
  toolTip_->raise();
  toolTip_->SetVisible(true);
}
