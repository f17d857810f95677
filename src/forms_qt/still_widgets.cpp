// What is only looked at: labels, frames and the program's own picture.
#include <QFontMetrics>
#include <QGroupBox>
#include <QLabel>
#include <QPainter>
#include <algorithm>

#include "forms_qt/control_widget.h"
#include "forms_qt/greek_letters.h"
#include "forms_qt/logo.h"
#include "forms_qt/qt_text.h"

namespace koprax {

namespace {

// A label of more characters is wrapped, into lines of about so many.
constexpr int LongestLine = 44;
constexpr int WrappedLine = 34;
constexpr double BodyFontSize = 8;

/// A label that never gives up a line of its wrapped text.
class WholeLabel final : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QLabel::resizeEvent(event);
    if (wordWrap()) {
      setMinimumHeight(heightForWidth(width()));
    }
  }
};

class LabelWidget final : public ControlWidget {
 public:
  LabelWidget(Label& label, QLabel& widget) : ControlWidget(label, widget), label_(label), widget_(widget) {
    widget.setTextFormat(Qt::PlainText);
    ScaleFont();
    ApplyAll({PropertyName::Caption});
  }

  void Apply(PropertyName name) override {
    if (name != PropertyName::Caption) {
      ControlWidget::Apply(name);
      return;
    }
    QString text = WithoutMnemonic(ToQt(label_.Caption.Get()));
    if (IsSymbolFont(label_.FontName)) {
      text = ToGreek(text);
    }
    const bool wraps = text.size() > LongestLine && !text.contains(QLatin1Char('\n'));
    if (wraps) {
      text = text.simplified();  // runs of blanks have no place in a wrapped line
      widget_.setMinimumWidth(WrappedLine * widget_.fontMetrics().averageCharWidth());
    }
    widget_.setWordWrap(wraps);
    widget_.setText(text);
  }

 private:
  void ScaleFont() {
    const double factor = static_cast<double>(label_.FontSize) / BodyFontSize;
    if (factor == 1.0) {
      return;
    }
    QFont font = widget_.font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(factor > 1.5);
    widget_.setFont(font);
  }

  Label& label_;
  QLabel& widget_;
};

class FrameWidget final : public ControlWidget {
 public:
  FrameWidget(Frame& frame, QGroupBox& widget)
      : ControlWidget(frame, widget), frame_(frame), widget_(widget) {
    ApplyAll({PropertyName::Caption});
  }

  void Apply(PropertyName name) override {
    if (name == PropertyName::Caption) {
      widget_.setTitle(ToQt(frame_.Caption.Get()));
    } else {
      ControlWidget::Apply(name);
    }
  }

 private:
  Frame& frame_;
  QGroupBox& widget_;
};

class LogoWidget final : public QWidget {
 public:
  explicit LogoWidget(QWidget& parent) : QWidget(&parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  }
  [[nodiscard]] QSize sizeHint() const override { return {96, 96}; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    DrawLogo(painter, QRectF(rect()));
  }
};

class ImageWidget final : public ControlWidget {
 public:
  ImageWidget(Image& image, LogoWidget& widget) : ControlWidget(image, widget) { ApplyAll({}); }
};

}  // namespace

std::unique_ptr<ControlWidget> MakeLabel(Label& label, QWidget& parent) {
  return std::make_unique<LabelWidget>(label, *new WholeLabel(&parent));
}

std::unique_ptr<ControlWidget> MakeFrame(Frame& frame, QWidget& parent) {
  return std::make_unique<FrameWidget>(frame, *new QGroupBox(&parent));
}

std::unique_ptr<ControlWidget> MakeImage(Image& image, QWidget& parent) {
  return std::make_unique<ImageWidget>(image, *new LogoWidget(parent));
}

}  // namespace koprax
