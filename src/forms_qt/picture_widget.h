// A picture box on the screen: white paper with the drawing operations on it, and the shapes and lines
// that lie above them. The operations are painted once into a pixmap; what lies above is painted on top
// of it, so that a moving cursor never redraws a profile.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <map>
#include <memory>

#include "forms/control.h"
#include "forms/form.h"
#include "forms_qt/surface_painter.h"

namespace koprax {

/// The pixels of a picture at its design size, on a screen of 96 dots an inch.
inline constexpr int DesignDotsPerMetre = 3780;
[[nodiscard]] QSize DesignPixels(const PictureBox& picture);

class PictureWidget final : public QWidget {
 public:
  PictureWidget(PictureBox& picture, QWidget* parent);

  /// The operations of the picture have changed.
  void OperationsChanged();
  /// A shape or line above the picture has changed its place or visibility.
  void OverlayChanged(const Control& overlay);

  /// How many operations have been painted since the widget was made: what redrawing has cost.
  [[nodiscard]] std::size_t OperationsPainted() const { return operations_painted_; }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint() * LeastShareOfDesign; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  // Below this share of its design size the labels of a plot could hardly be read.
  static constexpr double LeastShareOfDesign = 0.85;

  /// How the widget lies on the pixels of what it is painted on.
  struct Grid {
    double Density = 1;  ///< pixels to a unit of the widget
    QPointF Corner{};    ///< of the widget in its first pixel, where densities are fractions
    bool operator==(const Grid&) const = default;
  };
  static Grid CountInPixels(QPainter& painter);

  void BringPaperUpToDate(const Grid& grid);
  void PaintOnPaper(std::size_t first_operation);
  [[nodiscard]] SurfaceMap PixelMap(const Grid& grid) const;
  [[nodiscard]] bool PaperOnlyLacksTheEnd() const;
  [[nodiscard]] QPointF ToPicture(const QMouseEvent& event) const;
  void PaintOverlays(QPainter& painter, const Grid& grid) const;
  [[nodiscard]] static QRectF PlaceOf(const Control& overlay, const SurfaceMap& map);
  [[nodiscard]] QRect RepaintArea(const Control& overlay) const;

  PictureBox& picture_;
  std::weak_ptr<Form> form_;
  std::vector<const Control*> overlays_;
  std::map<const Control*, QRect> overlay_areas_;  // what each covers on the screen now

  QPixmap paper_;
  Grid paper_grid_;
  std::uint64_t paper_revision_ = 0;
  std::size_t paper_operations_ = 0;
  bool update_asked_ = false;
  std::size_t operations_painted_ = 0;
};

}  // namespace koprax
