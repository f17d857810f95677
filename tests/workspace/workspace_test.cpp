// The start state, the erase of a buffer, and Bragg's law.
#include "workspace/workspace.h"

#include <gtest/gtest.h>

#include <cmath>

#include "workspace/bragg.h"

namespace koprax {
namespace {

TEST(Workspace, StartsWithSixEmptyBuffersInTheirStartLimits) {
  const Workspace data;
  for (int slot = 1; slot <= NumBuffers; ++slot) {
    const ProfileBuffer& buffer = data.Buffer(slot);
    EXPECT_TRUE(buffer.Empty());
    EXPECT_EQ(buffer.Title.size(), 80U);
    EXPECT_EQ(buffer.BufLetter, std::string(1, static_cast<char>('a' + slot - 1)));
    EXPECT_EQ(buffer.PermXMin, 1);
    EXPECT_EQ(buffer.WorkXMax, 2);
    EXPECT_EQ(buffer.WorkYMax, 3);
    EXPECT_EQ(buffer.UdfHeader[30], " ");
    EXPECT_EQ(buffer.PermX.size(), 8001U);
  }
  EXPECT_EQ(data.PaddedY.size(), 8401U);
}

TEST(Workspace, EraseClearsABufferButItsHeaderLines) {
  Workspace data;
  ProfileBuffer& buffer = data.Buffer(3);
  buffer.Title = "Quartz";
  buffer.FormatCode = 2;
  buffer.Wavelength = 1.5F;
  buffer.PermNpts = buffer.WorkNpts = 8000;
  buffer.PermX[8000] = buffer.WorkY[8000] = 7;
  buffer.NPeaks = 1;
  buffer.PeakTheta[1] = buffer.PeakChannel[1] = "26.6";
  buffer.PeakListText = "  1)";
  buffer.CalPar[7] = 1e-9;
  buffer.UdfHeader[1] = buffer.UxdHeader[1] = "header";
  buffer.CpsLine2 = "line";
  buffer.NegativeY = 1;
  data.SelBuf[3] = 1;
  EraseBuffer(data, 3);
  EXPECT_EQ(buffer.Title, data.BlankTitle);
  EXPECT_EQ(buffer.FormatCode, 0);
  EXPECT_EQ(buffer.Wavelength, 0);
  EXPECT_EQ(buffer.PermNpts + buffer.WorkNpts + buffer.NPeaks, 0);
  EXPECT_EQ(buffer.PermX[8000] + buffer.WorkY[8000], 0);
  EXPECT_EQ(buffer.PeakTheta[1] + buffer.PeakChannel[1] + buffer.PeakListText + buffer.CpsLine2, "");
  EXPECT_EQ(buffer.CalPar[7], 0);
  // An erased buffer differs from one never used in its limits.
  EXPECT_EQ(buffer.PermXMin, 0);
  EXPECT_EQ(buffer.FileXMax, 0);
  EXPECT_EQ(buffer.WorkYMax, 0);
  EXPECT_EQ(buffer.UdfHeader[1], "header");
  EXPECT_EQ(buffer.BufLetter, "c");
  EXPECT_EQ(data.SelBuf[3], 0);
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

TEST(Bragg, ChannelPolynomialPassesOverZeroCoefficients) {
  const std::array<double, 8> coefficients{0, 10, 0.02, 0, 1e-9, 0, 0, 1e-18};
  const double c = 1234;
  const double expected = 10 + 0.02 * c + 1e-9 * c * c * c + 1e-18 * std::pow(c, 6);
  EXPECT_NEAR(TwoThetaOfChannel(coefficients, 1234), expected, 1e-5);  // 32 bits after each step
}

}  // namespace
}  // namespace koprax
