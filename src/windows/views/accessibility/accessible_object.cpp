#include "windows/views/accessibility/accessible_object.h"

#include <oleacc.h>

#include <string>
#include <string_view>
#include <utility>

#include "windows/support/bstr.h"
#include "windows/support/com_object.h"
#include "windows/support/com_ptr.h"
#include "windows/support/text.h"
#include "windows/views/accessibility/part_facts.h"

namespace kebu::windows {

namespace {

ComPtr<IAccessible> contentOf(HWND window) {
  ComPtr<IAccessible> object;
  AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                             object.putVoid());
  return object;
}

template <class T>
VARIANT objectVariant(ComPtr<T> object) {
  VARIANT result;
  VariantInit(&result);
  if (!object) return result;
  result.vt = VT_DISPATCH;
  result.pdispVal = object.detach();
  return result;
}

/// Whether a caller means the object itself. Other children are numbers.
bool isSelf(const VARIANT& child) {
  return child.vt == VT_EMPTY || (child.vt == VT_I4 && child.lVal == CHILDID_SELF);
}

class AccessibleObject final : public ComObject<IAccessible> {
 public:
  AccessibleObject(Describable& described, const PartId& part)
      : described_(described.weak()), part_(part) {}

  // ---- IDispatch: clients call the interface itself.
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                      UINT*) override {
    return E_NOTIMPL;
  }

  // ---- what it is

  STDMETHODIMP get_accName(VARIANT child, BSTR* name) override {
    return text(child, name, [](Describable&, const Inspection& answer) { return nameOf(answer); });
  }
  STDMETHODIMP get_accValue(VARIANT child, BSTR* value) override {
    return text(child, value,
                [](Describable&, const Inspection& answer) { return valueOf(answer); });
  }
  STDMETHODIMP get_accDescription(VARIANT child, BSTR* description) override {
    return text(child, description, [](Describable&, const Inspection& answer) {
      return std::wstring(answer.description);
    });
  }
  STDMETHODIMP get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) override {
    return text(child, shortcut, [](Describable&, const Inspection& answer) {
      return std::wstring(answer.shortcut);
    });
  }
  STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* action) override {
    return text(child, action, [](Describable& described, const Inspection& answer) {
      return toWide(described.translated(actionOf(answer)));
    });
  }
  STDMETHODIMP get_accHelp(VARIANT /*child*/, BSTR* help) override { return nothing(help); }
  STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT /*child*/, long* topic) override {
    if (topic) *topic = 0;
    return nothing(file);
  }

  STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) override {
    return number(child, role,
                  [](const AccessibleObject&, const Inspection& answer) { return roleOf(answer); });
  }
  STDMETHODIMP get_accState(VARIANT child, VARIANT* state) override {
    return number(child, state, [](const AccessibleObject& object, const Inspection& answer) {
      return object.stateOf(answer);
    });
  }

  STDMETHODIMP accLocation(long* left, long* top, long* width, long* height,
                           VARIANT child) override {
    if (!left || !top || !width || !height) return E_POINTER;
    if (!isSelf(child)) {
      const Own other = childObject(child.lVal);
      return other ? other->accLocation(left, top, width, height, self()) : E_INVALIDARG;
    }
    return answered([&](Describable& described, const Inspection& answer) {
      const RECT place = placeOf(described, answer);
      *left = place.left;
      *top = place.top;
      *width = place.right - place.left;
      *height = place.bottom - place.top;
      return S_OK;
    });
  }

  // ---- who contains whom

  STDMETHODIMP get_accParent(IDispatch** parent) override {
    if (!parent) return E_POINTER;
    *parent = nullptr;
    return answered([&](Describable& described, const Inspection& answer) {
      if (part_.part == Inspected::Cell || part_.part == Inspected::Column) {
        *parent = object(described, {Inspected::Row, part_.row, 0}).detach();
      } else if (part_.part == Inspected::Row ||
                 (part_.part == Inspected::Item && contentsOf(answer) == Contents::Items)) {
        *parent = object(described, {}).detach();
      } else if (Describable* const group = described.groupAround();
                 group && part_.part != Inspected::Item) {
        *parent = object(*group, {}).detach();
      } else if (!described.hasOwnWindow()) {
        *parent = contentOf(described.describedWindow()).detach();
      } else {
        const ComPtr<IAccessible> usual = standard(windowOf(described, answer));
        return usual ? usual->get_accParent(parent) : S_FALSE;
      }
      return S_OK;
    });
  }
  STDMETHODIMP get_accChildCount(long* count) override {
    if (!count) return E_POINTER;
    *count = 0;
    return answered([&](Describable& described, const Inspection& answer) {
      if (part_.part == Inspected::Row) {
        *count = ask(described, {}).columns;
        return S_OK;
      }
      if (part_.part != Inspected::Control) return S_OK;
      const auto members = described.members();
      switch (contentsOf(answer)) {
        case Contents::Rows:
          *count = answer.count + 1;
          return S_OK;
        case Contents::Items:
          *count = answer.count;
          return S_OK;
        case Contents::Windows: {
          const ComPtr<IAccessible> usual = standard(windowOf(described, answer));
          return usual ? usual->get_accChildCount(count) : S_OK;
        }
        case Contents::None:
          *count = static_cast<long>(members.size());
          return S_OK;
      }
      return S_OK;
    });
  }
  STDMETHODIMP get_accChild(VARIANT child, IDispatch** found) override {
    if (!found) return E_POINTER;
    *found = nullptr;
    if (child.vt != VT_I4) return E_INVALIDARG;
    if (isSelf(child)) {
      AddRef();
      *found = this;
      return S_OK;
    }
    Own own;
    const HRESULT result = answered([&](Describable& described, const Inspection& answer) {
      if (part_.part == Inspected::Control && contentsOf(answer) == Contents::Windows) {
        const ComPtr<IAccessible> usual = standard(windowOf(described, answer));
        return usual ? usual->get_accChild(child, found) : S_FALSE;
      }
      own = childOf(described, answer, child.lVal);
      return own ? S_OK : E_INVALIDARG;
    });
    if (own) *found = own.detach();
    return result;
  }

  // ---- where the user is

  STDMETHODIMP get_accFocus(VARIANT* focused) override {
    if (!focused) return E_POINTER;
    VariantInit(focused);
    return answered([&](Describable& described, const Inspection& answer) {
      HWND const focus = GetFocus();
      HWND const window = described.describedWindow();
      if (part_.part == Inspected::Control && focus == window && described.hasOwnWindow()) {
        const auto current = currentPart(answer);
        *focused = objectVariant(object(described, current.value_or(PartId{})));
      } else if (part_.part == Inspected::Control && IsChild(window, focus)) {
        *focused = objectVariant(contentOf(focus));
      } else {
        return S_FALSE;
      }
      return S_OK;
    });
  }
  STDMETHODIMP get_accSelection(VARIANT* selected) override {
    if (!selected) return E_POINTER;
    VariantInit(selected);
    return answered([&](Describable& described, const Inspection& answer) {
      if (part_.part != Inspected::Control || answer.current < 1) return S_FALSE;
      const Contents contents = contentsOf(answer);
      PartId part{Inspected::Row, answer.current, 0};
      if (contents == Contents::Items) part = {Inspected::Item, 0, answer.current - 1};
      if (contents != Contents::Items && contents != Contents::Rows) return S_FALSE;
      *selected = objectVariant(object(described, part));
      return S_OK;
    });
  }
  STDMETHODIMP accHitTest(long x, long y, VARIANT* hit) override {
    if (!hit) return E_POINTER;
    VariantInit(hit);
    return answered([&](Describable& described, const Inspection& answer) {
      const POINT onScreen{x, y};
      const RECT place = placeOf(described, answer);
      if (!PtInRect(&place, onScreen)) return S_FALSE;
      POINT point = onScreen;
      ScreenToClient(described.describedWindow(), &point);
      const PartId part = part_.part == Inspected::Control ? described.partAt(point) : PartId{};
      if (part != PartId{}) {
        *hit = objectVariant(object(described, part));
        return S_OK;
      }
      for (Describable* member : described.members()) {
        const RECT around = placeOf(*member, ask(*member, {}));
        if (!PtInRect(&around, onScreen)) continue;
        *hit = objectVariant(object(*member, {}));
        return S_OK;
      }
      *hit = self();
      return S_OK;
    });
  }
  STDMETHODIMP accNavigate(long /*direction*/, VARIANT /*from*/, VARIANT* end) override {
    // Clients walk by parents and children.
    if (end) VariantInit(end);
    return S_FALSE;
  }

  // ---- what the user can do

  STDMETHODIMP accSelect(long flags, VARIANT child) override {
    if (!isSelf(child)) {
      const Own other = childObject(child.lVal);
      return other ? other->accSelect(flags, self()) : E_INVALIDARG;
    }
    return answered([&](Describable& described, const Inspection& answer) {
      if (!(stateOf(answer) & (STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE))) return S_FALSE;
      if (flags & SELFLAG_TAKEFOCUS) SetFocus(windowOf(described, answer));
      if (part_.part == Inspected::Control) return S_OK;
      return described.goToPart(part_) ? S_OK : S_FALSE;
    });
  }
  /// A click in the middle of the part.
  STDMETHODIMP accDoDefaultAction(VARIANT child) override {
    if (!isSelf(child)) {
      const Own other = childObject(child.lVal);
      return other ? other->accDoDefaultAction(self()) : E_INVALIDARG;
    }
    return answered([&](Describable& described, const Inspection& before) {
      if (!*actionOf(before)) return DISP_E_MEMBERNOTFOUND;
      if (part_.part == Inspected::Cell) described.goToPart(part_);  // into sight
      const Inspection answer = ask(described, part_);
      if (IsRectEmpty(&answer.bounds) || !answer.enabled) return S_FALSE;
      const LPARAM middle = MAKELPARAM((answer.bounds.left + answer.bounds.right) / 2,
                                       (answer.bounds.top + answer.bounds.bottom) / 2);
      PostMessageW(answer.window, WM_LBUTTONDOWN, MK_LBUTTON, middle);
      PostMessageW(answer.window, WM_LBUTTONUP, 0, middle);
      return S_OK;
    });
  }
  STDMETHODIMP put_accName(VARIANT /*child*/, BSTR /*name*/) override { return E_ACCESSDENIED; }
  STDMETHODIMP put_accValue(VARIANT /*child*/, BSTR /*value*/) override { return E_ACCESSDENIED; }

 private:
  using Own = ComPtr<AccessibleObject>;

  void* find(REFIID wanted) override {
    if (wanted == IID_IDispatch) return static_cast<IDispatch*>(this);
    return ComObject::find(wanted);
  }

  static VARIANT self() {
    VARIANT result;
    VariantInit(&result);
    result.vt = VT_I4;
    result.lVal = CHILDID_SELF;
    return result;
  }
  static Own object(Describable& described, const PartId& part) {
    return Own::adopt(new AccessibleObject(described, part));
  }
  /// What Windows itself says of a window.
  static ComPtr<IAccessible> standard(HWND window) {
    ComPtr<IAccessible> usual;
    CreateStdAccessibleObject(window, OBJID_CLIENT, __uuidof(IAccessible), usual.putVoid());
    return usual;
  }
  static Inspection ask(Describable& described, const PartId& part) {
    Inspection answer;
    answer.part = part.part;
    answer.row = part.row;
    answer.index = part.index;
    described.inspect(answer);
    return answer;
  }

  /// Runs `work` with the control and what it answers about the part.
  template <class Work>
  HRESULT answered(Work&& work) noexcept {
    try {
      const std::shared_ptr<Describable> described = described_.lock();
      if (!described) return CO_E_OBJNOTCONNECTED;
      Inspection answer;
      answer.part = part_.part;
      answer.row = part_.row;
      answer.index = part_.index;
      if (!described->inspect(answer)) return CO_E_OBJNOTCONNECTED;
      return work(*described, answer);
    } catch (...) {
      return reportCurrentError();
    }
  }
  template <class Tell>
  HRESULT text(const VARIANT& child, BSTR* target, Tell&& tell) {
    if (!target) return E_POINTER;
    *target = nullptr;
    if (!isSelf(child)) {
      const Own other = childObject(child.lVal);
      return other ? other->text(self(), target, tell) : E_INVALIDARG;
    }
    return answered([&](Describable& described, const Inspection& answer) {
      const std::wstring told = tell(described, answer);
      if (told.empty()) return S_FALSE;
      *target = Bstr(std::wstring_view(told)).detach();
      return S_OK;
    });
  }
  template <class Tell>
  HRESULT number(const VARIANT& child, VARIANT* target, Tell&& tell) {
    if (!target) return E_POINTER;
    VariantInit(target);
    if (!isSelf(child)) {
      const Own other = childObject(child.lVal);
      return other ? other->number(self(), target, tell) : E_INVALIDARG;
    }
    return answered([&](Describable&, const Inspection& answer) {
      target->vt = VT_I4;
      target->lVal = tell(*this, answer);
      return S_OK;
    });
  }
  static HRESULT nothing(BSTR* text) {
    if (!text) return E_POINTER;
    *text = nullptr;
    return S_FALSE;
  }

  /// A child of ours; absent for one that Windows knows of, and for none.
  Own childObject(LONG child) {
    Own found;
    answered([&](Describable& described, const Inspection& answer) {
      found = childOf(described, answer, child);
      return S_OK;
    });
    return found;
  }
  Own childOf(Describable& described, const Inspection& answer, LONG child) const {
    if (part_.part == Inspected::Row) {
      const std::int32_t columns = ask(described, {}).columns;
      return child >= 1 && child <= columns ? cellObject(described, part_.row, child - 1) : nullptr;
    }
    if (part_.part != Inspected::Control) return nullptr;
    const Contents contents = contentsOf(answer);
    if (contents == Contents::Rows && child < 0 && answer.columns > 0) {
      const std::int32_t cell = -child - 1;
      const std::int32_t row = cell / answer.columns;
      return row <= answer.count ? cellObject(described, row, cell % answer.columns) : nullptr;
    }
    if (contents == Contents::Rows) {
      const std::int32_t row = child - 1;
      return row >= 0 && row <= answer.count ? object(described, {Inspected::Row, row, 0})
                                             : nullptr;
    }
    if (contents == Contents::Items) {
      return child >= 1 && child <= answer.count
                 ? object(described, {Inspected::Item, 0, child - 1})
                 : nullptr;
    }
    const auto members = described.members();
    const auto at = static_cast<std::size_t>(child) - 1;
    return at < members.size() ? object(*members[at], {}) : nullptr;
  }
  static Own cellObject(Describable& described, std::int32_t row, std::int32_t column) {
    return object(described, {row == 0 ? Inspected::Column : Inspected::Cell, row, column});
  }

  /// Where the user is in a grid or list: the current cell or item.
  static std::optional<PartId> currentPart(const Inspection& control) {
    switch (contentsOf(control)) {
      case Contents::Rows:
        if (control.current < 1) return std::nullopt;
        return PartId{Inspected::Cell, control.current, control.index};
      case Contents::Items:
        if (control.index < 0) return std::nullopt;
        return PartId{Inspected::Item, 0, control.index};
      default:
        return std::nullopt;
    }
  }

  /// The window that shows the part.
  static HWND windowOf(const Describable& described, const Inspection& answer) {
    return answer.part == Inspected::Control ? described.describedWindow() : answer.window;
  }

  /// On the screen; empty when out of sight.
  static RECT placeOf(const Describable& described, const Inspection& answer) {
    RECT place = answer.bounds;
    const bool isWholeWindow = answer.part == Inspected::Control && described.hasOwnWindow();
    if (isWholeWindow) {
      GetWindowRect(described.describedWindow(), &place);
    } else if (!IsRectEmpty(&place)) {
      MapWindowPoints(answer.window, nullptr, reinterpret_cast<POINT*>(&place), 2);
    }
    return place;
  }

  LONG stateOf(const Inspection& answer) const {
    const auto described = described_.lock();
    if (!described) return STATE_SYSTEM_UNAVAILABLE;
    LONG state = ownStateOf(answer);
    HWND const window = windowOf(*described, answer);
    const bool hasFocus = window && GetFocus() == window;
    const bool isItem = answer.part == Inspected::Item && contentsOf(answer) == Contents::Items;
    const bool isRow =
        (answer.part == Inspected::Row && part_.row > 0) || answer.part == Inspected::Cell;
    if (isRow || (isItem && roleOf(answer) == ROLE_SYSTEM_LISTITEM)) {
      const Inspection control = ask(*described, {});
      state |= STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE;
      if (control.current == (isRow ? part_.row : part_.index + 1)) state |= STATE_SYSTEM_SELECTED;
      if (hasFocus && currentPart(control) == part_) state |= STATE_SYSTEM_FOCUSED;
      return state;
    }
    const bool isWindow = !isItem && answer.part != Inspected::Column &&
                          answer.part != Inspected::Row && described->hasOwnWindow();
    const bool isFocusable =
        isWindow && answer.enabled && (GetWindowLongPtrW(window, GWL_STYLE) & WS_TABSTOP);
    if (isFocusable) state |= STATE_SYSTEM_FOCUSABLE;
    if (isFocusable && hasFocus && !currentPart(answer)) state |= STATE_SYSTEM_FOCUSED;
    return state;
  }

  std::weak_ptr<Describable> described_;
  PartId part_;
};

}  // namespace

std::optional<LRESULT> answerGetObject(Describable& described, const PartId& part, WPARAM wParam,
                                       LPARAM lParam) {
  if (static_cast<DWORD>(lParam) != static_cast<DWORD>(OBJID_CLIENT)) return std::nullopt;
  const auto object = ComPtr<IAccessible>::adopt(new AccessibleObject(described, part));
  return LresultFromObject(__uuidof(IAccessible), wParam, object.get());
}

}  // namespace kebu::windows
