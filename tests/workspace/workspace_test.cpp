// The start state, the erase of a buffer, and Bragg's law.
#include "workspace/workspace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <type_traits>
#include <vector>

#include "workspace/bragg.h"
#include "workspace/workspace_fields.h"

namespace koprax {
namespace {

constexpr float Other = 7;  ///< what no field starts with or is erased to

/// Gives a field, or each entry of a table, another value.
template <class Field>
void Change(Field& field) {
  if constexpr (std::is_same_v<Field, std::string>) {
    field = "other";
  } else if constexpr (std::is_arithmetic_v<Field>) {
    field = static_cast<Field>(Other);
  } else {
    std::ranges::for_each(field, [](auto& entry) { Change(entry); });
  }
}

/// Whether a field is 0 or blank, in all entries of a table.
template <class Field>
bool Cleared(const Field& field) {
  if constexpr (std::is_same_v<Field, std::string>) {
    return field.empty() || field == std::string(80, ' ');
  } else if constexpr (std::is_arithmetic_v<Field>) {
    return field == Field{};
  } else {
    return std::ranges::all_of(field, [](const auto& entry) { return Cleared(entry); });
  }
}

/// The names of the fields of a buffer that hold anything.
std::string Held(const ProfileBuffer& buffer) {
  std::string names;
  VisitBufferFields(buffer, [&](const char* name, const auto& field) {
    if (!Cleared(field)) names.append(name).append(" ");
  });
  return names;
}

TEST(Workspace, StartsWithSixEmptyBuffersInTheirStartLimits) {
  const Workspace data;
  for (int slot = 1; slot <= NumBuffers; ++slot) {
    const ProfileBuffer& buffer = data.Buffer(slot);
    EXPECT_TRUE(buffer.Empty());
    EXPECT_EQ(buffer.Title.size(), 80U);
    EXPECT_EQ(buffer.BufLetter, std::string(1, static_cast<char>('a' + slot - 1)));
    EXPECT_EQ(Held(buffer),
              "BufLetter FileXMin FileXMax PermXMin PermXMax PermYMax WorkXMin WorkXMax WorkYMax "
              "UdfHeader UxdHeader ");
    EXPECT_EQ((std::vector{buffer.FileXMin, buffer.FileXMax, buffer.PermXMin, buffer.PermXMax,
                           buffer.PermYMax, buffer.WorkXMin, buffer.WorkXMax, buffer.WorkYMax}),
              (std::vector<float>{1, 2, 1, 2, 3, 1, 2, 3}));
    EXPECT_EQ(buffer.UdfHeader[30] + buffer.UxdHeader[70], "  ");
    EXPECT_EQ(buffer.PermX.size(), 8001U);
  }
  EXPECT_EQ(data.PaddedY.size(), 8401U);
  EXPECT_EQ(data.InputFormat * 10 + data.NumSelected, 11);
}

TEST(Workspace, EraseClearsABufferButItsHeadersAndItsCard) {
  Workspace data;
  for (const int slot : {2, 3}) {
    VisitBufferFields(data.Buffer(slot), [](const char*, auto& field) { Change(field); });
  }
  const std::string all = Held(data.Buffer(2));
  data.SelBuf.fill(1);
  EraseBuffer(data, 3);
  EXPECT_EQ(Held(data.Buffer(3)),
            "BufLetter UdfHeader UxdHeader UxdHeaderLines CellFormat CardCell CardSpaceGroup CardD CardH "
            "CardK CardL ");
  EXPECT_EQ(data.Buffer(3).Title, data.BlankTitle);
  EXPECT_EQ(data.SelBuf[3], 0);
  EXPECT_EQ(Held(data.Buffer(2)), all);
  EXPECT_EQ(data.SelBuf[2], 1);
}

// The visits go through a record from its front to its end: no field stands under two names.
TEST(Workspace, EachFieldIsVisitedOnceInTheOrderOfTheRecord) {
  Workspace data;
  const void* last = nullptr;
  int count = 0;
  const auto next = [&](const char* name, const auto& field) {
    if (reinterpret_cast<const char*>(&field) < reinterpret_cast<const char*>(&data) ||
        reinterpret_cast<const char*>(&field) >= reinterpret_cast<const char*>(&data + 1)) {
      return;  // a limit, which is no field
    }
    EXPECT_LT(last, static_cast<const void*>(&field)) << name;
    last = &field;
    ++count;
  };
  VisitBufferFields(data.Buffer(1), next);
  EXPECT_EQ(count, 45);
  VisitWorkspaceFields(data, next);
  EXPECT_EQ(count, 45 + 88);
}

TEST(Bragg, SpacingsOfSiliconAtItsCertifiedPositions) {
  // NIST SRM 640e certificate (2015), Cu K-alpha 1 = 1.5405929 angstrom: reflection, 2-theta; the d follow
  // from a = 5.431179 by d = a / sqrt(h^2 + k^2 + l^2). The angles are given to 0.001 degrees, which is
  // 5e-5 angstrom at the first line.
  const double a = 5.431179;
  EXPECT_NEAR(SpacingOf(28.441F, 1.5405929F), a / std::sqrt(3), 1e-4);
  EXPECT_NEAR(SpacingOf(47.300F, 1.5405929F), a / std::sqrt(8), 1e-4);
  EXPECT_NEAR(SpacingOf(56.120F, 1.5405929F), a / std::sqrt(11), 1e-4);
  EXPECT_EQ(SpacingOf(0, 1.54F), 0);
  EXPECT_NEAR(SpacingOf(180, 1.54F), 0.77, 1e-6);
}

}  // namespace
}  // namespace koprax
