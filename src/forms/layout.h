// How a window arranges its controls: a tree of rows, columns, grids and frames, declared once by the
// window. Turning it into pixels is left to the view.
#pragma once

#include <utility>
#include <vector>

#include "forms/control.h"

namespace koprax {

struct LayoutNode {
  enum class Kind {
    Item,    ///< one control; a frame's children lie inside it
    Row,     ///< side by side
    Column,  ///< one below the other
    Grid,    ///< row by row in the given number of columns
    Stack,   ///< all in one place with room for the largest; mostly one is shown at a time
    Space,   ///< takes what room is left over
  };

  LayoutNode(Control& control) : Type(Kind::Item), Item(&control) {}  // NOLINT: a control is a node
  LayoutNode(Kind kind, std::vector<LayoutNode> children) : Type(kind), Children(std::move(children)) {}

  Kind Type;
  Control* Item = nullptr;
  std::vector<LayoutNode> Children{};
  int Columns = 0;         ///< of a grid
  int Stretch = 0;         ///< share of the room left over; 0 keeps to what the node needs
  bool KeepsRoom = false;  ///< holds its place while it is hidden
};

inline LayoutNode Row(std::vector<LayoutNode> children) {
  return {LayoutNode::Kind::Row, std::move(children)};
}
inline LayoutNode Column(std::vector<LayoutNode> children) {
  return {LayoutNode::Kind::Column, std::move(children)};
}
inline LayoutNode Stack(std::vector<LayoutNode> children) {
  return {LayoutNode::Kind::Stack, std::move(children)};
}
inline LayoutNode Grid(int columns, std::vector<LayoutNode> children) {
  LayoutNode node{LayoutNode::Kind::Grid, std::move(children)};
  node.Columns = columns;
  return node;
}
/// A frame around its contents.
inline LayoutNode Framed(Frame& frame, LayoutNode contents) {
  LayoutNode node{frame};
  node.Children.push_back(std::move(contents));
  return node;
}
inline LayoutNode Space() { return {LayoutNode::Kind::Space, {}}; }
/// The node with a share of the room left over.
inline LayoutNode Stretched(LayoutNode node, int share = 1) {
  node.Stretch = share;
  return node;
}
/// The node with its place kept while it is hidden.
inline LayoutNode KeepingRoom(LayoutNode node) {
  node.KeepsRoom = true;
  return node;
}

}  // namespace koprax
