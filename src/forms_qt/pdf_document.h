// PDF files in memory. The same drawing always gives the same bytes, whoever draws it and when.
#pragma once

#include <QByteArray>
#include <QPageLayout>
#include <QPdfWriter>
#include <functional>

namespace koprax {

/// So fine that lines on whole dots lie where they belong.
inline constexpr int VectorDotsPerInch = 1200;

/// A document of one page, which `paint` draws. Empty where that fails.
[[nodiscard]] QByteArray PdfDocument(const QPageLayout& page, const std::function<bool(QPdfWriter&)>& paint);

}  // namespace koprax
