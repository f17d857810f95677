// Files for a walk through the workbench: one of each kind that it reads, made by hand.
#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "fuzz/work_file.h"

namespace koprax {

class SampleFiles {
 public:
  SampleFiles() {
    for (std::size_t i = 0; i < files_.size(); ++i) {
      files_.at(i).Write(Contents().at(i));
      paths_.push_back(files_.at(i).Path());
    }
    paths_.emplace_back("no/such/folder/profile.dat");
    paths_.emplace_back();
  }

  /// The paths of the files, one that leads nowhere, and an empty one.
  [[nodiscard]] const std::vector<std::string>& ToOpen() const { return paths_; }
  /// A path that may be written, one that can't be, and an empty one.
  [[nodiscard]] const std::vector<std::string>& ToSave() const { return paths_to_save_; }
  /// Takes away what has been written.
  void RemoveSaved() const {
    std::error_code ignored;
    std::filesystem::remove(saved_.Path(), ignored);
  }

 private:
  static constexpr std::size_t Count = 10;

  static std::array<std::string, Count> Contents() {
    std::string empty_lines;
    for (int i = 0; i < 511; ++i) empty_lines += "\r\n";
    const std::string mark_column(79, ' ');
    return {
        "Silicon\r\n5\r\n28.38,28.46,0.02\r\n212\r\n840\r\n3275\r\n840\r\n198\r\n3275,198\r\n1.5406\r\n",
        "No wavelength\r\n20 0.5 0\r\n5\r\n-7\r\n300\r\n20\r\n6\r\n40\r\n",
        "Variable step\r\n28 10\r\n28.1 20\r\n29 3\r\n40 1000\r\n50.5 3\r\n",
        "4096\r\n1/1/1\r\n5\r\nme\r\n\r\n\r\n\r\n\r\n\r\n1 2 3 400 5 6 7 8\r\n" + empty_lines,
        "Title1,T,/\r\nLabdaAlpha1,1.54,/\r\nDataAngleRange,10,12,/\r\nScanStepSize,0.5,/\r\nRawScan\r\n"
        "1,5,900,20,1,/\r\n",
        "_SAMPLE='s'\r\n_STEPSIZE=1\r\n_RANGE_WL=1.5406\r\n_2THETACOUNTS\r\n10 5\r\n11 500\r\n12 5\r\n",
        "   5.4312   5.4312   5.4312   90.00   90.00   90.00\r\n\r\nFd-3m\r\n\r\n\r\nSilicon\r\n" +
            mark_column + "F\r\n" +
            " 3.1357100   1  1  1    1.9202 55   2  2  0    1.6375 30   3  1  1    1 00-0001I\r\n",
        "calibration\r\n-1.5\r\n0.0123\r\n1E-07\r\n\r\n\r\n\r\n",
        "28.44 100 3.13\r\n47.3 50 1.92\r\n",
        "no profile",
    };
  }

  std::array<WorkFile, Count> files_{WorkFile("0"), WorkFile("1"), WorkFile("2"), WorkFile("3"),
                                     WorkFile("4"), WorkFile("5"), WorkFile("6"), WorkFile("7"),
                                     WorkFile("8"), WorkFile("9")};
  WorkFile saved_{"saved"};
  std::vector<std::string> paths_;
  std::vector<std::string> paths_to_save_{saved_.Path(), "no/such/folder/profile.dat", ""};
};

}  // namespace koprax
