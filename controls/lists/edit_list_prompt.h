#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "enumerations/enumerations.h"
#include "foundation/signal.h"
#include "foundation/variant.h"
#include "platform/std_font.h"
#include "platform/types.h"

namespace zk {

class FEditListPrompt;
class IControlSite;
class IPopupWindow;
class ZKEditList;

// The list window of a choice list, as the control sees it: a borderless popup window with an
// edit list, an optional prompt above it and OK and Cancel buttons. The wrapper creates the
// window (hidden) with itself, through the owner control's site, and destroys it with itself;
// the window is shown and hidden any number of times in between and keeps its rows meanwhile.
// Every member forwards to the window, and the window's list members to its edit list.
class ZKCEditListPrompt {
 public:
  // `owner_site` is the site of the control that owns the window.
  explicit ZKCEditListPrompt(IControlSite& owner_site);
  ~ZKCEditListPrompt();
  ZKCEditListPrompt(const ZKCEditListPrompt&) = delete;
  ZKCEditListPrompt& operator=(const ZKCEditListPrompt&) = delete;

  // ---- The window ----
  // True when the window was last closed through its OK button.
  bool OK() const;
  void SetOK(bool New_OK);
  // The window's size, twips.
  float Width() const;
  void SetWidth(float New_Width);
  float Height() const;
  void SetHeight(float New_Height);
  // Clears OK and shows the window: mode 0 modeless, 1 modal (returns once the window has
  // hidden again). False, with nothing shown, when the platform refuses the showing.
  bool ShowForm(int32_t mode);
  bool Visible() const;
  // Writing false to a visible window hides it and raises LostFocus; to a hidden one, nothing.
  void SetVisible(bool New_Visible);
  // Moves and sizes the window, twips of the screen; a place the platform refuses is ignored.
  void MoveForm(float Left, float Top, float Width, float Height);
  WindowHandle hWnd() const;
  bool Enabled() const;
  void SetEnabled(bool New_Enabled);
  OLE_COLOR BackColor() const;
  void SetBackColor(OLE_COLOR New_BackColor);
  bool ShowOK() const;
  void SetShowOK(bool New_ShowOK);
  bool ShowCancel() const;
  void SetShowCancel(bool New_ShowCancel);

  // ---- The prompt above the list (hidden while empty) ----
  std::u16string Prompt() const;
  void SetPrompt(std::u16string_view New_Prompt);
  FontRef PromptFont() const;
  void SetPromptFont(FontRef New_PromptFont);
  OLE_COLOR PromptFontColor() const;
  void SetPromptFontColor(OLE_COLOR New_PromptFontColor);

  // ---- The list (forwarded to the edit list under its own names where not said) ----
  // The current row's item text.
  std::u16string Text() const;
  void SetText(std::u16string_view New_Text);
  // The list's Font.
  FontRef ListFont() const;
  void SetListFont(FontRef New_ListFont);
  // The list's ForeColor and BackColor.
  OLE_COLOR ItemForeColor() const;
  void SetItemForeColor(OLE_COLOR New_ItemForeColor);
  OLE_COLOR ItemBackColor() const;
  void SetItemBackColor(OLE_COLOR New_ItemBackColor);
  OLE_COLOR TagForeColor() const;
  void SetTagForeColor(OLE_COLOR New_TagForeColor);
  OLE_COLOR TagBackColor() const;
  void SetTagBackColor(OLE_COLOR New_TagBackColor);
  std::u16string ItemList(int32_t Index) const;
  void SetItemList(int32_t Index, std::u16string_view New_ItemList);
  std::u16string TagList(int32_t Index) const;
  void SetTagList(int32_t Index, std::u16string_view New_TagList);
  bool ShowTags() const;
  void SetShowTags(bool New_ShowTags);
  zktELTagsPosition TagColumnPosition() const;
  void SetTagColumnPosition(int32_t New_TagColumnPosition);
  float TagColumnWidth() const;
  void SetTagColumnWidth(double New_TagColumnWidth);
  int32_t ListIndex() const;
  void SetListIndex(int32_t New_ListIndex);
  int32_t ListCount() const;
  void AddItem(std::u16string_view Item, const Variant& Index = Variant(),
               std::u16string_view Tag = {});
  void RemoveItem(int16_t Index);
  void Clear();
  int32_t SelectTag(std::u16string_view p_tag);
  int32_t SelectItem(std::u16string_view p_item);
  // The edit list's 38-element archive string, and parsing one into it.
  std::u16string GetEditListArchiveString() const;
  bool ParseEditListArchiveString(std::u16string_view p_str);
  bool Locked() const;
  void SetLocked(bool New_Locked);
  bool EditTags() const;
  void SetEditTags(bool New_EditTags);
  zktSortOrder SortOrder() const;
  void SetSortOrder(int32_t New_SortOrder);

  // The window's edit list itself, for the library (a choice list sets its BorderStyle).
  ZKEditList& EditList();
  // The window itself, for hosts and tests that drive or look at it.
  FEditListPrompt& Form();
  IPopupWindow& Window();

  // ---- Events ----
  // The window was closed through OK (true) or Cancel (false) while it was shown; at most once
  // a showing, and never together with LostFocus for the same closing.
  Signal<bool> HideForm;
  // The window hid itself because another window became active, or Visible was set to false
  // while it was shown.
  Signal<> LostFocus;

 private:
  std::unique_ptr<FEditListPrompt> m_form;
  std::vector<ScopedConnection> connections_;
};

}  // namespace zk
