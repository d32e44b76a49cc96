#pragma once

#include <cstdint>

// The enumerations that the library publishes, so that host code can name the values of the
// controls' enumerated properties (ctl.Alignment = zktTextAlignCenter). Each is a signed 32-bit
// type; the enumerated setters accept exactly the values listed here.
namespace zk {

enum zktButBehavior : int32_t { zktButton = 0, zktToggle = 1 };

// Selected is the platform's true value, -1.
enum zktToggleValue : int32_t { zktToggleUnselected = 0, zktToggleSelected = -1 };

enum zktCmdBorderStyle : int32_t { zktBSNone = 0, zktBSSolid = 1 };

enum zktAppearance : int32_t { zktApFlat = 0, zktAp3d = 1 };

enum zktPBDirection : int32_t {
  zktPBLeftToRight = 0,
  zktPBRightToLeft = 1,
  zktPBBottomToTop = 2,
  zktPBTopToBottom = 3
};

enum zktTextAlignment : int32_t {
  zktTextAlignLeft = 0,
  zktTextAlignRight = 1,
  zktTextAlignCenter = 2
};

enum zktTextVerticalAlignment : int32_t {
  zktTextVAlignTop = 0,
  zktTextVAlignBottom = 1,
  zktTextVAlignCenter = 2
};

enum zktButTextAlignment : int32_t {
  zktButTextAlignLeft = 0,
  zktButTextAlignRight = 1,
  zktButTextAlignCenter = 2,
  zktButTextAlignCenterBottom = 3,
  zktButTextAlignCenterTop = 4
};

enum zktTextDataType : int32_t {
  zktTDText = 0,
  zktTDInteger = 1,
  zktTDDecimal = 2,
  zktTDDate = 3,
  zktTDHour = 4,
  zktTDDateHour = 5
};

enum zktELTagsPosition : int32_t { zktTagPosLeft = 0, zktTagPosRight = 1 };

enum zktTextForceCase : int32_t {
  zktTForceNone = 0,
  zktTForceUpperCase = 1,
  zktTForceLowerCase = 2
};

// Published only; no member takes it.
enum zktEditListMultiSelect : int32_t { zktMSNo = 0, zktMSYes = 1 };

// The slider counts its directions differently from the progress bar, and its last enumerator
// is spelled with a lower-case "to"; both are part of the published names.
enum zktSBDirection : int32_t {
  zktSBLeftToRight = 0,
  zktSBTopToBottom = 1,
  zktSBRightToLeft = 2,
  zktSBBottomtoTop = 3
};

enum zktSortOrder : int32_t { zktSortNone = 0, zktSortAtoZ = 1, zktSortZtoA = 2 };

enum zktProgressBarAnchor : int32_t {
  zktPAnchorCenter = 0,
  zktPAnchorScaleMax = 1,
  zktPAnchorScaleMin = 2,
  zktPAnchorAboveLevel = 3,
  zktPAnchorBelowLevel = 4
};

}  // namespace zk
