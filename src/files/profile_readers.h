// The readers of the seven formats, by the number of the format. What a reader makes of a file is its own
// business; opening windows and telling the user are left to the load sequence.
#pragma once

#include "files/card_format.h"
#include "files/profile_reading.h"

namespace koprax {

inline constexpr int NumFormats = 7;

/// The numbers of the formats, as InputFormat holds them. FormatCodes differ.
namespace input_format {
inline constexpr int ItalDat = 1;
inline constexpr int OneColumn = 2;
inline constexpr int TwoColumns = 3;
inline constexpr int Adf = 4;
inline constexpr int Udf = 5;
inline constexpr int Uxd = 6;
inline constexpr int Aid = 7;
}  // namespace input_format

/// Reads the file FileName into a slot from 1 to 6 by the reader of InputFormat, 1 to 7. The wavelength is
/// asked for by the reader of cards alone.
[[nodiscard]] ReadOutcome ReadByFormat(Workspace& workspace, int slot, const TellUser& tell,
                                       const AskWavelength& ask_wavelength);

/// The steps of the reader of a format, 1 to 7, on a file that is open.
[[nodiscard]] ReadOutcome ReadRecordsByFormat(int format, ProfileReading& reading,
                                              const AskWavelength& ask_wavelength);

}  // namespace koprax
