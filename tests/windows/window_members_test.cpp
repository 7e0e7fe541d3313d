// What a host calls of the plug-in's window by its COM object.
#include "host/window_members.h"

#include <gtest/gtest.h>

#include <string>

#include "common/platform.h"
#include "tests/windows/same_variant.h"
#include "tests/windows/transcript.h"
#include "windows/host/host_objects.h"
#include "windows/support/dispatch.h"

namespace kebu::tests {

namespace {

using windows::ComPtr;
using windows::Dispatch;
using windows::Variant;

class Frame : public host::NamedObject {
 public:
  std::string Name() const override { return "FME_ANAGRAFICA"; }
  void setName(const std::string& /*name*/) override {}
};

/// Records the calls.
class Window : public Frame, public host::WindowMembers {
 public:
  std::int16_t VisualizzaErrore(const std::string& procedure) override {
    calls.note("error in " + procedure);
    return 4;
  }
  void ChangeStatus(const Ref<host::NamedObject>& frame) override {
    calls.note("status of " + (frame ? frame->Name() : "none"));
  }
  std::string TranslateString(const std::string& text) override { return "<" + text + ">"; }
  std::int32_t VLTMsgBox(const Value& prompt, std::int32_t buttons, const Value& title,
                         const Value& context) override {
    note(describe(prompt), buttons, title, context);
    return msgbox::yes;
  }
  std::int32_t VLTMsgBoxFromId(std::int32_t id, std::int32_t buttons, const Value& title,
                               const Value& context) override {
    note(std::to_string(id), buttons, title, context);
    return msgbox::no;
  }

  Transcript calls;

 private:
  void note(const std::string& message, std::int32_t buttons, const Value& title,
            const Value& context) {
    calls.note("box " + message + ", " + std::to_string(buttons) + ", " + describe(title) + ", " +
               describe(context));
  }
};

Variant real(double value) {
  Variant result;
  result.raw().vt = VT_R8;
  result.raw().dblVal = value;
  return result;
}

TEST(WindowMembers, TakeAndGiveVariants) {
  const Dispatch window(windows::unwrap(Ref<host::NamedObject>(makeRef<Window>())));
  const Variant nothing;
  const struct {
    const wchar_t* member;
    Dispatch::Arguments arguments;
    Variant result;
  } cases[] = {
      {L"NVL", {"   ", std::int16_t{5}}, std::int16_t{5}},
      {L"NVL", {Variant::null(), "-"}, "-"},
      {L"NVL", {" a ", std::int16_t{5}}, " a "},
      {L"NVL", {real(0.5), std::int16_t{5}}, real(0.5)},
      {L"NVL", {std::int32_t{0}, std::int16_t{5}}, std::int32_t{0}},
      {L"CDecN", {}, std::int16_t{0}},
      {L"CDecN", {"  "}, std::int16_t{0}},
      {L"CDecN", {real(2.5)}, windows::toVariant(Decimal::parse("2.5").value())},
      {L"RTrimN", {" a "}, " a"},
      {L"RTrimN", {Variant::null()}, ""},
      {L"RTrimN", {real(3)}, "3"},
      {L"TranslateString", {"Sì"}, "<Sì>"},
  };
  for (const auto& [member, arguments, result] : cases) {
    EXPECT_TRUE(isSame(window.call(member, arguments), result)) << windows::toUtf8(member);
  }
  EXPECT_THROW(window.call(L"CDecN", {"abc"}), RuntimeError);
}

TEST(WindowMembers, ReachTheWindow) {
  const auto object = makeRef<Window>();
  const Dispatch window(windows::unwrap(Ref<host::NamedObject>(object)));
  const Ref<host::NamedObject> frame = makeRef<Frame>();
  EXPECT_EQ(window.number(L"VisualizzaErrore", {"Mia_Procedura"}), 4);
  window.call(L"ChangeStatus", {windows::unwrap(frame)});
  window.call(L"ChangeStatus", {ComPtr<IDispatch>()});
  EXPECT_EQ(window.number(L"VLTMsgBox", {"Salvare?", std::int32_t{36}, "Titolo", real(1)}), 6);
  EXPECT_EQ(window.number(L"VLTMsgBox", {"Fatto"}), 6);
  EXPECT_EQ(window.number(L"VLTMsgBoxFromId", {std::int32_t{12569}, std::int32_t{48}, "T"}), 7);
  EXPECT_EQ(object->calls.lines(),
            (std::vector<std::string>{
                "error in Mia_Procedura", "status of FME_ANAGRAFICA", "status of none",
                "box text \"Salvare?\", 36, text \"Titolo\", object",
                "box text \"Fatto\", 0, empty, empty", "box 12569, 48, text \"T\", empty"}));
  // A frame has none of these members.
  EXPECT_FALSE(Dispatch(windows::unwrap(frame)).has(L"VLTMsgBox"));
}

}  // namespace

}  // namespace kebu::tests
