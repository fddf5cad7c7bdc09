// The control and its surroundings: other threads, other sizes, the container's colours,
// right-to-left layout.
#include <map>
#include <thread>

#include "tests/com/com_test.h"
#include "tests/com/screen.h"

namespace zolt20::tests {
namespace {

class AmbientTest : public testing::Test {
 protected:
  AmbientTest() { EXPECT_EQ(container_.Create(CLSID_ZOLT20MapControl), S_OK); }
  template <typename Interface>
  Pointer<Interface> As() const {
    return com::Query<Interface>(container_.Control());
  }
  void Activate() {
    ASSERT_EQ(container_.Activate(), S_OK);
    Pump();
  }
  HWND On(const wchar_t* name) const { return WindowOf(container_.Window(), name); }
  HWND Window() const {
    HWND window = nullptr;
    As<IOleInPlaceObject>()->GetWindow(&window);
    return window;
  }
  static SIZE SizeOf(HWND window) {
    RECT whole{};
    GetWindowRect(window, &whole);
    return {whole.right - whole.left, whole.bottom - whole.top};
  }
  static LONG MiddleOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return (place.left + place.right) / 2;
  }
  void Tell(DISPID property) { As<IOleControl>()->OnAmbientPropertyChange(property); }

  Container container_{880, 620};
};

// Threads.

TEST_F(AmbientTest, EveryCallFromAnotherThreadIsRefusedButThoseOfReferences) {
  const auto object = As<IOleObject>();
  const auto points = As<IConnectionPointContainer>();
  const auto stream = As<IPersistStreamInit>();
  const auto view = As<IViewObjectEx>();
  const auto data = As<IDataObject>();
  const auto control = As<IOleControl>();
  const auto place = As<IOleInPlaceObject>();
  const auto active = As<IOleInPlaceActiveObject>();
  const auto about = As<IProvideClassInfo2>();
  const auto errors = As<ISupportErrorInfo>();
  const auto byName = As<IDispatch>();
  const auto storage = As<IPersistStorage>();
  const auto memory = As<IPersistMemory>();
  const auto pointer = As<IPointerInactive>();
  const auto quick = As<IQuickActivate>();
  Pointer<IConnectionPoint> point;
  points->FindConnectionPoint(DIID___ZOLT20MapControl, point.Put());
  std::map<std::string, HRESULT> results;
  HRESULT queried = E_FAIL;
  std::thread other([&] {
    DWORD number = 0;
    UINT count = 0;
    CLSID id{};
    HWND window = nullptr;
    RECTL whole{};
    FORMATETC format{CF_DIB, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    FORMATETC canonical{};
    QACONTAINER container{};
    container.cbSize = sizeof container;
    QACONTROL taken{};
    taken.cbSize = sizeof taken;
    SIZEL size{};
    Pointer<IConnectionPoint> found;
    Pointer<IConnectionPointContainer> around;
    Pointer<IEnumOLEVERB> verbs;
    results["GetMiscStatus"] = object->GetMiscStatus(DVASPECT_CONTENT, &number);
    results["GetUserClassID"] = object->GetUserClassID(&id);
    results["GetExtent"] = object->GetExtent(DVASPECT_CONTENT, &size);
    results["EnumVerbs"] = object->EnumVerbs(verbs.Put());
    results["SetHostNames"] = object->SetHostNames(L"", L"");
    results["Update"] = object->Update();
    results["IsUpToDate"] = object->IsUpToDate();
    results["FindConnectionPoint"] =
        points->FindConnectionPoint(IID_IPropertyNotifySink, found.Put());
    results["GetConnectionInterface"] = point->GetConnectionInterface(&id);
    results["GetConnectionPointContainer"] = point->GetConnectionPointContainer(around.Put());
    results["IsDirty"] = stream->IsDirty();
    results["GetClassID"] = stream->GetClassID(&id);
    results["HandsOffStorage"] = storage->HandsOffStorage();
    results["GetSizeMax"] = memory->GetSizeMax(&number);
    results["GetViewStatus"] = view->GetViewStatus(&number);
    results["GetRect"] = view->GetRect(DVASPECT_CONTENT, &whole);
    results["QueryGetData"] = data->QueryGetData(&format);
    results["GetCanonicalFormatEtc"] = data->GetCanonicalFormatEtc(&format, &canonical);
    results["FreezeEvents"] = control->FreezeEvents(FALSE);
    results["GetWindow"] = place->GetWindow(&window);
    results["EnableModeless"] = active->EnableModeless(TRUE);
    results["GetGUID"] = about->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id);
    results["InterfaceSupportsErrorInfo"] = errors->InterfaceSupportsErrorInfo(IID_IDispatch);
    results["GetTypeInfoCount"] = byName->GetTypeInfoCount(&count);
    results["GetActivationPolicy"] = pointer->GetActivationPolicy(&number);
    results["QuickActivate"] = quick->QuickActivate(&container, &taken);
    Pointer<IUnknown> same;
    queried = object->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(same.Put()));
  });
  other.join();
  for (const auto& [name, result] : results)
    EXPECT_EQ(result, RPC_E_WRONG_THREAD) << name;
  EXPECT_EQ(queried, S_OK);
  DWORD status = 0;
  EXPECT_EQ(object->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
  EXPECT_NE(status, 0U);
}

// Sizes.

TEST_F(AmbientTest, ASizeThatItIsGivenWhileActiveIsThatOfItsWindow) {
  Activate();
  SIZEL size{15'875, 13'229};  // 600 by 500 pixels at 96 for each inch
  EXPECT_EQ(As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size), S_OK);
  EXPECT_EQ(SizeOf(Window()).cx, 600);
  EXPECT_EQ(SizeOf(Window()).cy, 500);
}

TEST_F(AmbientTest, ItsSiteHasTheLastWordOnItsPlace) {
  Activate();
  RECT asked{};
  container_.onPosRect = [&](const RECT& place) {
    asked = place;
    const RECT given{5, 5, 405, 305};
    return As<IOleInPlaceObject>()->SetObjectRects(&given, &given);
  };
  SIZEL size{15'875, 13'229};
  EXPECT_EQ(As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size), S_OK);
  EXPECT_EQ(asked.right - asked.left, 600);
  EXPECT_EQ(asked.bottom - asked.top, 500);
  EXPECT_EQ(SizeOf(Window()).cx, 400);
  EXPECT_EQ(SizeOf(Window()).cy, 300);
  SIZEL now{};
  EXPECT_EQ(As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &now), S_OK);
  EXPECT_EQ(now.cx, 15'875);
}

// Colours.

constexpr COLORREF kPaper = RGB(250, 240, 200);
constexpr COLORREF kInk = RGB(60, 20, 0);

COLORREF BesideEverything(HWND form) {
  const Screen screen(form);
  return screen.At(1, screen.Height() - 2);
}

TEST_F(AmbientTest, TheFormHasTheColorsOfItsContainer) {
  container_.colors = {kPaper, kInk};
  Tell(DISPID_AMBIENT_BACKCOLOR);
  Activate();
  EXPECT_EQ(BesideEverything(Window()), kPaper);
  const HDC canvas = GetDC(Window());
  SendMessageW(GetParent(On(L"optFor")), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(canvas),
               reinterpret_cast<LPARAM>(On(L"optFor")));
  EXPECT_EQ(GetTextColor(canvas), kInk);
  ReleaseDC(Window(), canvas);
}

TEST_F(AmbientTest, OtherColorsAreShownWhenItIsTold) {
  Activate();
  EXPECT_EQ(BesideEverything(Window()), GetSysColor(COLOR_BTNFACE));
  container_.colors = {kPaper, kInk};
  Tell(DISPID_AMBIENT_BACKCOLOR);
  Pump();
  EXPECT_EQ(BesideEverything(Window()), kPaper);
  container_.colors.reset();
  Tell(DISPID_UNKNOWN);
  Pump();
  EXPECT_EQ(BesideEverything(Window()), GetSysColor(COLOR_BTNFACE));
}

TEST_F(AmbientTest, ColorsThatCannotBeReadAreNotTaken) {
  container_.colors = {kPaper, kPaper};
  Tell(DISPID_AMBIENT_FORECOLOR);
  Activate();
  EXPECT_EQ(BesideEverything(Window()), GetSysColor(COLOR_BTNFACE));
}

TEST_F(AmbientTest, ThePictureHasTheColorsOfTheContainer) {
  container_.colors = {kPaper, kInk};
  Tell(DISPID_AMBIENT_BACKCOLOR);
  const HDC screen = GetDC(nullptr);
  const HDC canvas = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, 400, 300);
  SelectObject(canvas, bitmap);
  const RECTL place{0, 0, 400, 300};
  EXPECT_EQ(As<IViewObject2>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, canvas,
                                     &place, nullptr, nullptr, 0),
            S_OK);
  EXPECT_EQ(GetPixel(canvas, 1, 298), kPaper);
  DeleteDC(canvas);
  DeleteObject(bitmap);
  ReleaseDC(nullptr, screen);
}

// From the right.

TEST_F(AmbientTest, WhereOneReadsFromTheRightTheFormBeginsThere) {
  Activate();
  const bool isTablesLeft = MiddleOf(On(L"lsttables")) < MiddleOf(On(L"lstSelectedFields"));
  EXPECT_TRUE(isTablesLeft);
  container_.rightToLeft = true;
  Tell(DISPID_AMBIENT_RIGHTTOLEFT);
  Pump();
  EXPECT_GT(MiddleOf(On(L"lsttables")), MiddleOf(On(L"lstSelectedFields")));
  EXPECT_EQ(SizeOf(Window()).cx, 880);
  EXPECT_TRUE(IsWindowVisible(On(L"lsttables")));
  EXPECT_NE(GetWindowLongPtrW(Window(), GWL_EXSTYLE) & WS_EX_LAYOUTRTL, 0);
  // Names and statements are read from the left everywhere.
  for (const wchar_t* name : {L"lsttables", L"TxtOutput", L"TxtAsSet", L"cmbOperand1"}) {
    if (On(name) != nullptr) {
      EXPECT_EQ(GetWindowLongPtrW(On(name), GWL_EXSTYLE) & (WS_EX_LAYOUTRTL | WS_EX_RTLREADING), 0);
    }
  }
  ClickOn(container_.Window(), L"cmdDone");
  container_.rightToLeft = false;
  Tell(DISPID_AMBIENT_RIGHTTOLEFT);
  Pump();
  EXPECT_LT(MiddleOf(On(L"lsttables")), MiddleOf(On(L"lstSelectedFields")));
}

TEST_F(AmbientTest, OnePlaysASessionOnAFormThatIsReadFromTheRight) {
  SessionPlayer player([this] {
    container_.rightToLeft = true;
    return Embed(container_);
  });
  const auto sessions = SessionsIn(Sessions());
  EXPECT_EQ(player.Play(sessions.front()), std::vector<std::string>{});
}

}  // namespace
}  // namespace zolt20::tests
