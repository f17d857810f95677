#include "files/profile_readers.h"

#include <string>

#include "files/channel_format.h"
#include "files/column_formats.h"
#include "files/philips_format.h"
#include "files/siemens_format.h"

namespace koprax {

namespace {

ReadOutcome NoReader(int format) {
  return FailedRead("There is no reader for format " + std::to_string(format) + ".");
}

}  // namespace

ReadOutcome ReadByFormat(Workspace& workspace, int slot, const TellUser& tell,
                         const AskWavelength& ask_wavelength) {
  switch (workspace.InputFormat) {
    case 1:
      return ReadItalDat(workspace, slot, tell);
    case 2:
      return ReadOneColumn(workspace, slot, tell);
    case 3:
      return ReadTwoColumns(workspace, slot, tell);
    case 4:
      return ReadAdf(workspace, slot, tell);
    case 5:
      return ReadUdf(workspace, slot, tell);
    case 6:
      return ReadUxd(workspace, slot, tell);
    case 7:
      return ReadAid(workspace, slot, tell, ask_wavelength);
    default:
      return NoReader(workspace.InputFormat);
  }
}

ReadOutcome ReadRecordsByFormat(int format, ProfileReading& reading, const AskWavelength& ask_wavelength) {
  switch (format) {
    case 1:
      return ReadItalDatRecords(reading);
    case 2:
      return ReadOneColumnRecords(reading);
    case 3:
      return ReadTwoColumnsRecords(reading);
    case 4:
      return ReadAdfRecords(reading);
    case 5:
      return ReadUdfRecords(reading);
    case 6:
      return ReadUxdRecords(reading);
    case 7:
      return ReadAidRecords(reading, ask_wavelength);
    default:
      return NoReader(format);
  }
}

}  // namespace koprax
