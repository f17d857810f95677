// The mouse pointers of the forms as Qt has them.
#pragma once

#include <QtCore/qnamespace.h>

#include "forms/control.h"

namespace koprax {

[[nodiscard]] constexpr Qt::CursorShape CursorShape(Pointer pointer) {
  switch (pointer) {
    case Pointer::Cross:
      return Qt::CrossCursor;
    case Pointer::EastWest:
      return Qt::SizeHorCursor;
    case Pointer::Hourglass:
      return Qt::WaitCursor;
    case Pointer::Arrow:
      break;
  }
  return Qt::ArrowCursor;
}

}  // namespace koprax
