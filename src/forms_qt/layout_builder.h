// Turns the layout tree of a form into Qt's layouts.
#pragma once

#include <QLayout>
#include <functional>

#include "forms/layout.h"

namespace koprax {

/// Makes the widget of a control as a child of the given one, or returns null for a control that has none.
using WidgetMaker = std::function<QWidget*(Control&, QWidget& parent)>;

/// Fills `parent` with the layout of that tree, from its edges inward.
void BuildLayout(const LayoutNode& node, QWidget& parent, const WidgetMaker& make);

}  // namespace koprax
