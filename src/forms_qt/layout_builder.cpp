#include "forms_qt/layout_builder.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QWidget>
#include <algorithm>

namespace koprax {

namespace {

constexpr int Gap = 5;         // between neighbours
constexpr int WindowEdge = 7;  // between the contents and the edge of a window
constexpr int FrameEdge = 6;   // between the contents and the edge of a frame

using Kind = LayoutNode::Kind;

/// A place that keeps room for the largest of its widgets, of which one is shown at a time; should several
/// be shown, they lie one below the other.
class SharedPlace final : public QWidget {
 public:
  explicit SharedPlace(QWidget& parent) : QWidget(&parent), box_(new QVBoxLayout(this)) {
    box_->setContentsMargins(0, 0, 0, 0);
    box_->setSpacing(Gap);
  }

  [[nodiscard]] QBoxLayout& Box() const { return *box_; }
  [[nodiscard]] QSize sizeHint() const override {
    return Largest(QWidget::sizeHint(), [](const QWidget& widget) { return widget.sizeHint(); });
  }
  [[nodiscard]] QSize minimumSizeHint() const override {
    return Largest(QWidget::minimumSizeHint(),
                   [](const QWidget& widget) { return widget.minimumSizeHint(); });
  }

 private:
  template <class Hint>
  [[nodiscard]] QSize Largest(QSize size, Hint hint) const {
    for (const QWidget* widget : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
      size = size.expandedTo(hint(*widget));
    }
    return size;
  }

  QVBoxLayout* box_;
};

class Builder {
 public:
  explicit Builder(const WidgetMaker& make) : make_(make) {}

  void FillWidget(const LayoutNode& node, QWidget& parent, int edge, bool keeps_room) const {
    auto* layout = new QVBoxLayout(&parent);
    layout->setContentsMargins(edge, edge, edge, edge);
    layout->setSpacing(Gap);
    if (node.Type == Kind::Column) {
      AddChildren(node, *layout, parent, keeps_room || node.KeepsRoom);
    } else {
      AddToBox(node, *layout, parent, keeps_room);
    }
  }

 private:
  void AddChildren(const LayoutNode& node, QBoxLayout& box, QWidget& parent, bool keeps_room) const {
    for (const LayoutNode& child : node.Children) {
      AddToBox(child, box, parent, keeps_room);
    }
  }

  void AddToBox(const LayoutNode& node, QBoxLayout& box, QWidget& parent, bool keeps_room) const {
    if (node.Type == Kind::Space) {
      box.addStretch(std::max(1, node.Stretch));
    } else if (node.Type == Kind::Item) {
      if (QWidget* widget = MakeItem(node, parent, keeps_room)) {
        box.addWidget(widget, node.Stretch);
      }
    } else {
      QLayout* inner = MakeLayout(node, parent, keeps_room || node.KeepsRoom);
      box.addLayout(inner, node.Stretch);
      if (box.direction() == QBoxLayout::LeftToRight && !GrowsDownward(node)) {
        box.setAlignment(inner, Qt::AlignTop);
      }
    }
  }

  /// Whether a node has use for more height than it needs.
  static bool GrowsDownward(const LayoutNode& node) {
    const auto grows = [](const LayoutNode& child) { return GrowsDownward(child); };
    const bool itself = node.Stretch > 0 || node.Type == Kind::Space || node.Type == Kind::Stack ||
                        (node.Item != nullptr && node.Item->Kind() == ControlKind::PictureBox);
    return itself || std::ranges::any_of(node.Children, grows);
  }

  QWidget* MakeItem(const LayoutNode& node, QWidget& parent, bool keeps_room) const {
    QWidget* widget = make_(*node.Item, parent);
    if (widget == nullptr) {
      return nullptr;
    }
    const bool stays = keeps_room || node.KeepsRoom;
    if (stays) {
      QSizePolicy policy = widget->sizePolicy();
      policy.setRetainSizeWhenHidden(true);
      widget->setSizePolicy(policy);
    }
    if (!node.Children.empty()) {
      FillWidget(node.Children.front(), *widget, FrameEdge, stays);
    }
    return widget;
  }

  QLayout* MakeLayout(const LayoutNode& node, QWidget& parent, bool keeps_room) const {
    switch (node.Type) {
      case Kind::Row:
        return MakeBox(new QHBoxLayout, node, parent, keeps_room);
      case Kind::Grid:
        return MakeGrid(node, parent, keeps_room);
      case Kind::Stack:
        return MakeStack(node, parent);
      default:
        return MakeBox(new QVBoxLayout, node, parent, keeps_room);
    }
  }

  QLayout* MakeBox(QBoxLayout* box, const LayoutNode& node, QWidget& parent, bool keeps_room) const {
    box->setSpacing(Gap);
    AddChildren(node, *box, parent, keeps_room);
    return box;
  }

  QLayout* MakeGrid(const LayoutNode& node, QWidget& parent, bool keeps_room) const {
    auto* grid = new QGridLayout;
    grid->setSpacing(Gap);
    const int columns = std::max(1, node.Columns);
    int cell = 0;
    for (const LayoutNode& child : node.Children) {
      PlaceInGrid(child, *grid, cell / columns, cell % columns, parent, keeps_room);
      ++cell;
    }
    return grid;
  }

  QLayout* MakeStack(const LayoutNode& node, QWidget& parent) const {
    auto* place = new SharedPlace(parent);
    for (const LayoutNode& child : node.Children) {
      AddToBox(Stretched(child), place->Box(), *place, false);
    }
    auto* around = new QVBoxLayout;
    around->addWidget(place);
    return around;
  }

  void PlaceInGrid(const LayoutNode& node, QGridLayout& grid, int row, int column, QWidget& parent,
                   bool keeps_room) const {
    if (node.Type == Kind::Item) {
      if (QWidget* widget = MakeItem(node, parent, keeps_room)) {
        grid.addWidget(widget, row, column);
      }
    } else if (node.Type != Kind::Space) {
      grid.addLayout(MakeLayout(node, parent, keeps_room || node.KeepsRoom), row, column);
    }
    if (node.Stretch > 0) {
      grid.setColumnStretch(column, std::max(grid.columnStretch(column), node.Stretch));
      grid.setRowStretch(row, std::max(grid.rowStretch(row), node.Stretch));
    }
  }

  const WidgetMaker& make_;
};

}  // namespace

void BuildLayout(const LayoutNode& node, QWidget& parent, const WidgetMaker& make) {
  Builder(make).FillWidget(node, parent, WindowEdge, false);
}

}  // namespace koprax
