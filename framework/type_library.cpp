#include "framework/type_library.h"

#include <array>

namespace zk {
namespace {

#define ZK_ENUMERATOR(name) \
  EnumeratorInfo {          \
    u## #name, name         \
  }

constexpr std::array kButBehavior = {ZK_ENUMERATOR(zktButton), ZK_ENUMERATOR(zktToggle)};
constexpr std::array kToggleValue = {ZK_ENUMERATOR(zktToggleUnselected),
                                     ZK_ENUMERATOR(zktToggleSelected)};
constexpr std::array kCmdBorderStyle = {ZK_ENUMERATOR(zktBSNone), ZK_ENUMERATOR(zktBSSolid)};
constexpr std::array kAppearance = {ZK_ENUMERATOR(zktApFlat), ZK_ENUMERATOR(zktAp3d)};
constexpr std::array kPBDirection = {
    ZK_ENUMERATOR(zktPBLeftToRight), ZK_ENUMERATOR(zktPBRightToLeft),
    ZK_ENUMERATOR(zktPBBottomToTop), ZK_ENUMERATOR(zktPBTopToBottom)};
constexpr std::array kTextAlignment = {ZK_ENUMERATOR(zktTextAlignLeft),
                                       ZK_ENUMERATOR(zktTextAlignRight),
                                       ZK_ENUMERATOR(zktTextAlignCenter)};
constexpr std::array kTextVerticalAlignment = {ZK_ENUMERATOR(zktTextVAlignTop),
                                               ZK_ENUMERATOR(zktTextVAlignBottom),
                                               ZK_ENUMERATOR(zktTextVAlignCenter)};
constexpr std::array kButTextAlignment = {
    ZK_ENUMERATOR(zktButTextAlignLeft), ZK_ENUMERATOR(zktButTextAlignRight),
    ZK_ENUMERATOR(zktButTextAlignCenter), ZK_ENUMERATOR(zktButTextAlignCenterBottom),
    ZK_ENUMERATOR(zktButTextAlignCenterTop)};
constexpr std::array kTextDataType = {ZK_ENUMERATOR(zktTDText),    ZK_ENUMERATOR(zktTDInteger),
                                      ZK_ENUMERATOR(zktTDDecimal), ZK_ENUMERATOR(zktTDDate),
                                      ZK_ENUMERATOR(zktTDHour),    ZK_ENUMERATOR(zktTDDateHour)};
constexpr std::array kELTagsPosition = {ZK_ENUMERATOR(zktTagPosLeft),
                                        ZK_ENUMERATOR(zktTagPosRight)};
constexpr std::array kTextForceCase = {ZK_ENUMERATOR(zktTForceNone),
                                       ZK_ENUMERATOR(zktTForceUpperCase),
                                       ZK_ENUMERATOR(zktTForceLowerCase)};
constexpr std::array kEditListMultiSelect = {ZK_ENUMERATOR(zktMSNo), ZK_ENUMERATOR(zktMSYes)};
constexpr std::array kSBDirection = {
    ZK_ENUMERATOR(zktSBLeftToRight), ZK_ENUMERATOR(zktSBTopToBottom),
    ZK_ENUMERATOR(zktSBRightToLeft), ZK_ENUMERATOR(zktSBBottomtoTop)};
constexpr std::array kSortOrder = {ZK_ENUMERATOR(zktSortNone), ZK_ENUMERATOR(zktSortAtoZ),
                                   ZK_ENUMERATOR(zktSortZtoA)};
constexpr std::array kProgressBarAnchor = {
    ZK_ENUMERATOR(zktPAnchorCenter), ZK_ENUMERATOR(zktPAnchorScaleMax),
    ZK_ENUMERATOR(zktPAnchorScaleMin), ZK_ENUMERATOR(zktPAnchorAboveLevel),
    ZK_ENUMERATOR(zktPAnchorBelowLevel)};

#undef ZK_ENUMERATOR

constexpr std::array<EnumerationInfo, 15> kEnumerations = {{
    {u"zktButBehavior", kButBehavior},
    {u"zktToggleValue", kToggleValue},
    {u"zktCmdBorderStyle", kCmdBorderStyle},
    {u"zktAppearance", kAppearance},
    {u"zktPBDirection", kPBDirection},
    {u"zktTextAlignment", kTextAlignment},
    {u"zktTextVerticalAlignment", kTextVerticalAlignment},
    {u"zktButTextAlignment", kButTextAlignment},
    {u"zktTextDataType", kTextDataType},
    {u"zktELTagsPosition", kELTagsPosition},
    {u"zktTextForceCase", kTextForceCase},
    {u"zktEditListMultiSelect", kEditListMultiSelect},
    {u"zktSBDirection", kSBDirection},
    {u"zktSortOrder", kSortOrder},
    {u"zktProgressBarAnchor", kProgressBarAnchor},
}};

}  // namespace

std::span<const EnumerationInfo> PublishedEnumerations() {
  return kEnumerations;
}

std::optional<int32_t> FindEnumerator(std::u16string_view name) {
  for (const EnumerationInfo& enumeration : kEnumerations) {
    for (const EnumeratorInfo& enumerator : enumeration.enumerators) {
      if (enumerator.name == name) return enumerator.value;
    }
  }
  return std::nullopt;
}

}  // namespace zk
