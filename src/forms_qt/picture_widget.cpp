#include "forms_qt/picture_widget.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "forms_qt/clipboard.h"
#include "forms_qt/control_widget.h"
#include "forms_qt/pointer_shapes.h"
#include "forms_qt/surface_painter.h"

namespace koprax {

namespace {

constexpr double PixelsPerMillimetre = 96.0 / 25.4;

std::optional<MouseButton> ButtonOf(const QMouseEvent& event) {
  switch (event.button()) {
    case Qt::LeftButton:
      return MouseButton::Left;
    case Qt::RightButton:
      return MouseButton::Right;
    default:
      return std::nullopt;
  }
}

}  // namespace

PictureWidget::PictureWidget(PictureBox& picture, QWidget* parent)
    : QWidget(parent), picture_(picture), form_(picture.OwnerForm().weak_from_this()) {
  for (const Control* control : picture.OwnerForm().Controls()) {
    if (control->Container() == &picture) {
      overlays_.push_back(control);
    }
  }
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize DesignPixels(const PictureBox& picture) {
  return {static_cast<int>(std::lround(picture.DesignWidth * PixelsPerMillimetre)),
          static_cast<int>(std::lround(picture.DesignHeight * PixelsPerMillimetre))};
}

QSize PictureWidget::sizeHint() const { return DesignPixels(picture_); }

void PictureWidget::OperationsChanged() {
  // A profile is thousands of operations; one of them asks for the repaint.
  if (!update_asked_) {
    update_asked_ = true;
    update();
  }
}

void PictureWidget::OverlayChanged(const Control& overlay) {
  const QRect area = RepaintArea(overlay);
  QRect& covered = overlay_areas_[&overlay];
  update(covered);
  update(area);
  covered = area;
}

void PictureWidget::paintEvent(QPaintEvent* /*event*/) {
  update_asked_ = false;
  ActOn(form_, [&] {
    QPainter painter(this);
    const Grid grid = CountInPixels(painter);
    BringPaperUpToDate(grid);
    painter.drawPixmap(0, 0, paper_);
    PaintOverlays(painter, grid);
  });
}

/// Lets a painter count in whole pixels, from the one in which the corner of the widget lies: what is drawn
/// where the mouse was pressed has to come into the very pixel under the mouse.
PictureWidget::Grid PictureWidget::CountInPixels(QPainter& painter) {
  const QTransform to_pixels = painter.deviceTransform();
  const QPointF corner(to_pixels.dx(), to_pixels.dy());
  const QPointF first(PixelAt(corner.x()), PixelAt(corner.y()));
  painter.setWorldTransform(QTransform::fromTranslate(first.x(), first.y()) * to_pixels.inverted());
  return {.Density = to_pixels.m11(), .Corner = corner - first};
}

SurfaceMap PictureWidget::PixelMap(const Grid& grid) const {
  return {picture_.Scale(), QSizeF(size()) * grid.Density, grid.Corner};
}

void PictureWidget::BringPaperUpToDate(const Grid& grid) {
  const QSizeF covered = QSizeF(size()) * grid.Density;
  const QSize pixels(static_cast<int>(std::ceil(grid.Corner.x() + covered.width())),
                     static_cast<int>(std::ceil(grid.Corner.y() + covered.height())));
  const bool fits = paper_.size() == pixels && paper_grid_ == grid;
  if (fits && paper_revision_ == picture_.Revision()) {
    return;
  }
  if (fits && PaperOnlyLacksTheEnd()) {
    PaintOnPaper(paper_operations_);
  } else {
    paper_ = QPixmap(pixels.expandedTo({1, 1}));
    paper_.fill(Qt::white);
    paper_grid_ = grid;
    PaintOnPaper(0);
  }
  paper_revision_ = picture_.Revision();
  paper_operations_ = picture_.Operations().size();
}

bool PictureWidget::PaperOnlyLacksTheEnd() const {
  // Each new operation counts one revision and so does each clearing; the numbers agree only if there
  // was no clearing.
  const std::size_t count = picture_.Operations().size();
  return count >= paper_operations_ && picture_.Revision() - paper_revision_ == count - paper_operations_;
}

void PictureWidget::PaintOnPaper(std::size_t first_operation) {
  const auto operations = std::span(picture_.Operations()).subspan(first_operation);
  QPainter painter(&paper_);
  SurfacePainter(painter, PixelMap(paper_grid_), std::max(1.0, paper_grid_.Density)).Paint(operations);
  operations_painted_ += operations.size();
}

void PictureWidget::PaintOverlays(QPainter& painter, const Grid& grid) const {
  const SurfaceMap map = PixelMap(grid);
  const auto pixel_of = [](QPointF place) { return QPointF(PixelAt(place.x()), PixelAt(place.y())); };
  const auto pen_width = [&](int width) { return std::max(1.0, std::round(width * grid.Density)); };
  painter.setBrush(Qt::NoBrush);
  for (const Control* overlay : overlays_) {
    if (!overlay->Visible) {
      continue;
    }
    if (const auto* line = dynamic_cast<const LineShape*>(overlay)) {
      painter.setPen(
          QPen(ToQColor(line->BorderColor), pen_width(line->BorderWidth), Qt::SolidLine, Qt::FlatCap));
      painter.drawLine(pixel_of(map.ToDevice(line->X1.Get(), line->Y1.Get())),
                       pixel_of(map.ToDevice(line->X2.Get(), line->Y2.Get())));
    } else {
      painter.setPen(QPen(Qt::black, pen_width(1), Qt::DashLine));
      const QRectF place = PlaceOf(*overlay, map);
      painter.drawRect(QRectF(pixel_of(place.topLeft()), pixel_of(place.bottomRight())));
    }
  }
}

QRectF PictureWidget::PlaceOf(const Control& overlay, const SurfaceMap& map) {
  if (const auto* line = dynamic_cast<const LineShape*>(&overlay)) {
    return QRectF(map.ToDevice(line->X1.Get(), line->Y1.Get()), map.ToDevice(line->X2.Get(), line->Y2.Get()))
        .normalized();
  }
  const auto& shape = dynamic_cast<const Shape&>(overlay);
  const float down = map.GrowsUpward() ? -shape.Height : shape.Height.Get();
  return QRectF(map.ToDevice(shape.Left.Get(), shape.Top.Get()),
                map.ToDevice(shape.Left + shape.Width, shape.Top + down))
      .normalized();
}

QRect PictureWidget::RepaintArea(const Control& overlay) const {
  const auto* const line = dynamic_cast<const LineShape*>(&overlay);
  const int margin = line != nullptr ? line->BorderWidth + 1 : 2;
  const SurfaceMap map(picture_.Scale(), size());
  return overlay.Visible ? PlaceOf(overlay, map).toAlignedRect().adjusted(-margin, -margin, margin, margin)
                         : QRect();
}

QPointF PictureWidget::ToPicture(const QMouseEvent& event) const {
  // Qt rounds the position in a widget to whole units, which fractional densities have between the pixels;
  // the position in the window it leaves exact. An event that was made for the widget alone has no such
  // position.
  const QPointF exact = mapFrom(window(), event.scenePosition());
  const QPointF rounding = exact - event.position();
  const bool same = std::abs(rounding.x()) < 1 && std::abs(rounding.y()) < 1;
  return SurfaceMap(picture_.Scale(), size()).ToUser(same ? exact : event.position());
}

void PictureWidget::mousePressEvent(QMouseEvent* event) {
  if (const auto button = ButtonOf(*event)) {
    const QPointF at = ToPicture(*event);
    ActOn(form_,
          [&] { picture_.MouseDown(*button, static_cast<float>(at.x()), static_cast<float>(at.y())); });
  }
}

void PictureWidget::mouseMoveEvent(QMouseEvent* event) {
  const QPointF at = ToPicture(*event);
  ActOn(form_, [&] { picture_.MouseMove(static_cast<float>(at.x()), static_cast<float>(at.y())); });
}

void PictureWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (const auto button = ButtonOf(*event)) {
    const QPointF at = ToPicture(*event);
    ActOn(form_, [&] { picture_.MouseUp(*button, static_cast<float>(at.x()), static_cast<float>(at.y())); });
  }
}

namespace {

class PictureAdapter final : public ControlWidget {
 public:
  PictureAdapter(PictureBox& picture, PictureWidget& widget)
      : ControlWidget(picture, widget), picture_(picture), widget_(widget) {
    ApplyAll({PropertyName::MousePointer});
  }

  void Apply(PropertyName name) override {
    if (name == PropertyName::MousePointer) {
      ApplyPointer();
    } else {
      ControlWidget::Apply(name);
    }
  }
  void ApplyFormPointer(Pointer pointer) override {
    form_waits_ = pointer == Pointer::Hourglass;
    ApplyPointer();
  }
  bool Copy(CopiedPart part) override {
    if (part == CopiedPart::Whole) {
      CopyPicture(picture_);
    }
    return part == CopiedPart::Whole;
  }

 private:
  void ApplyPointer() {
    widget_.setCursor(CursorShape(form_waits_ ? Pointer::Hourglass : picture_.MousePointer.Get()));
  }

  PictureBox& picture_;
  PictureWidget& widget_;
  bool form_waits_ = false;
};

}  // namespace

std::unique_ptr<ControlWidget> MakePicture(PictureBox& picture, QWidget& parent) {
  return std::make_unique<PictureAdapter>(picture, *new PictureWidget(picture, &parent));
}

}  // namespace koprax
