// The program's own picture: a powder pattern under a ring of diffracted rays, drawn, so that it is
// sharp at any size.
#pragma once

#include <QIcon>
#include <QPainter>
#include <QRectF>

namespace koprax {

void DrawLogo(QPainter& painter, const QRectF& area);

/// The picture as an icon of windows and the task bar.
[[nodiscard]] QIcon LogoIcon();

}  // namespace koprax
