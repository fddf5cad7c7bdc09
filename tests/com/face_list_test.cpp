// The list of what any face does, played on the windows of the form: where it asks what the control
// was given, on the form itself, otherwise on the registered control in a container.
#include "tests/com/form_hands.h"

namespace zolt20::tests {
namespace {

using Json = FaceHands::Json;

const FaceCases& Cases() {
  wchar_t path[MAX_PATH] = L"";
  GetEnvironmentVariableW(L"ZOLT20_FACE_LIST", path, MAX_PATH);
  static const FaceCases kCases{Narrowed(path)};
  return kCases;
}

/// A person at the control in a container.
class ControlHands final : public WindowHands {
 public:
  ControlHands() {
    EXPECT_EQ(container_.Create(CLSID_ZOLT20MapControl), S_OK);
    byName_ = com::Query<IDispatch>(container_.Control());
    active_ = com::Query<IOleInPlaceActiveObject>(container_.Control());
    EXPECT_EQ(container_.Activate(OLEIVERB_UIACTIVATE), S_OK);
  }

  void CarryOut(const Json& request) override {
    const std::wstring name = Widened(request["set"]);
    EXPECT_EQ(Named{*byName_.Get()}.Put(name.c_str(), Widened(request["value"]).c_str()), S_OK);
  }
  std::vector<Json> TakeGestures() override { throw std::logic_error("no container hears them"); }
  std::string TextOnSurface(const std::string& /*control*/) override {
    throw std::logic_error("no container reads it");
  }

 protected:
  HWND Around() const override { return container_.Window(); }
  bool TakesKey(MSG& message) override { return active_->TranslateAccelerator(&message) == S_OK; }

 private:
  Container container_{880, 620};
  Pointer<IDispatch> byName_;
  Pointer<IOleInPlaceActiveObject> active_;
};

class FaceListTest : public testing::TestWithParam<Json> {
 protected:
  // Two colours of the platform that may be the same.
  FaceListTest() { SetColor(RGB(255, 250, 205)); }
  ~FaceListTest() override { SetColor(before_); }

  static void Play(FaceHands& hands) {
    for (const Json& request : Cases().catalogue())
      hands.CarryOut(request);
    for (const Json& step : GetParam()["steps"])
      PlayStep(hands, step);
  }

 private:
  static void SetColor(COLORREF color) {
    const INT element = COLOR_HIGHLIGHTTEXT;
    SetSysColors(1, &element, &color);
  }

  const COLORREF before_ = GetSysColor(COLOR_HIGHLIGHTTEXT);
};

TEST(FaceListItselfTest, IsWhole) {
  EXPECT_EQ(Cases().Fault(), "");
}

TEST_P(FaceListTest, IsDone) {
  if (HasStep(GetParam(), "gestures") || HasStep(GetParam(), "surface")) {
    FormHands hands;
    Play(hands);
  } else {
    ControlHands hands;
    Play(hands);
  }
}

INSTANTIATE_TEST_SUITE_P(Windows, FaceListTest, testing::ValuesIn(Cases().PlayedBy("com")),
                         [](const auto& one) { return CaseNameOf(one.param); });

}  // namespace
}  // namespace zolt20::tests
