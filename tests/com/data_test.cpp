// The control as a data object, its verbs, and quick activation.
#include <cstring>
#include <map>

#include "tests/com/com_test.h"

namespace zolt20::tests {
namespace {

CLIPFORMAT Registered(const wchar_t* name) {
  return static_cast<CLIPFORMAT>(RegisterClipboardFormatW(name));
}
FORMATETC Format(CLIPFORMAT format, DWORD medium) {
  return {format, nullptr, DVASPECT_CONTENT, -1, medium};
}

class DataTest : public ControlTest {
 protected:
  DataTest() : data_(As<IDataObject>()) {}
  void SetUp() override { ASSERT_TRUE(data_); }
  STGMEDIUM Data(CLIPFORMAT format, DWORD tymed) const {
    FORMATETC wanted = Format(format, tymed);
    STGMEDIUM medium{};
    EXPECT_EQ(data_->GetData(&wanted, &medium), S_OK);
    EXPECT_EQ(medium.tymed, tymed);
    return medium;
  }

  Pointer<IDataObject> data_;
};

TEST_F(DataTest, EachFormatThatIsListedIsGiven) {
  Pointer<IEnumFORMATETC> formats;
  ASSERT_EQ(data_->EnumFormatEtc(DATADIR_GET, formats.Put()), S_OK);
  int count = 0;
  for (FORMATETC format{}; formats->Next(1, &format, nullptr) == S_OK; ++count) {
    EXPECT_EQ(data_->QueryGetData(&format), S_OK) << format.cfFormat;
    STGMEDIUM medium{};
    EXPECT_EQ(data_->GetData(&format, &medium), S_OK) << format.cfFormat;
    EXPECT_EQ(medium.tymed, format.tymed);
    EXPECT_EQ(medium.pUnkForRelease, nullptr);
    ReleaseStgMedium(&medium);
  }
  EXPECT_EQ(count, 6);
  EXPECT_EQ(data_->EnumFormatEtc(DATADIR_SET, formats.Put()), E_NOTIMPL);
}

TEST_F(DataTest, WhatIsNotListedIsRefused) {
  FORMATETC text = Format(CF_UNICODETEXT, TYMED_HGLOBAL);
  STGMEDIUM medium{};
  EXPECT_EQ(data_->QueryGetData(&text), DV_E_FORMATETC);
  EXPECT_EQ(data_->GetData(&text, &medium), DV_E_FORMATETC);
  FORMATETC dib = Format(CF_DIB, TYMED_ISTREAM);
  EXPECT_EQ(data_->QueryGetData(&dib), DV_E_TYMED);
  dib.tymed = TYMED_HGLOBAL;
  dib.dwAspect = DVASPECT_ICON;
  EXPECT_EQ(data_->QueryGetData(&dib), DV_E_DVASPECT);
  dib.dwAspect = DVASPECT_CONTENT;
  dib.lindex = 1;
  EXPECT_EQ(data_->QueryGetData(&dib), DV_E_LINDEX);
  dib.lindex = -1;
  EXPECT_EQ(data_->GetDataHere(&dib, &medium), DATA_E_FORMATETC);
  EXPECT_EQ(data_->SetData(&dib, &medium, FALSE), E_NOTIMPL);
  FORMATETC canonical{};
  EXPECT_EQ(data_->GetCanonicalFormatEtc(&dib, &canonical), DATA_S_SAMEFORMATETC);
}

// How many different colours there are, and how many points of the boxes' own.
std::pair<std::size_t, int> ColorsOf(HDC canvas, int width, int height) {
  std::map<COLORREF, int> colors;
  for (int y = 0; y < height; y += 3) {
    for (int x = 0; x < width; x += 3)
      ++colors[GetPixel(canvas, x, y)];
  }
  return {colors.size(), colors[GetSysColor(COLOR_WINDOW)]};
}

class Canvas {
 public:
  Canvas() : screen_(GetDC(nullptr)), canvas_(CreateCompatibleDC(screen_)) {
    bitmap_ = CreateCompatibleBitmap(screen_, kWidth, kHeight);
    SelectObject(canvas_, bitmap_);
    PatBlt(canvas_, 0, 0, kWidth, kHeight, BLACKNESS);
  }
  ~Canvas() {
    DeleteDC(canvas_);
    DeleteObject(bitmap_);
    ReleaseDC(nullptr, screen_);
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;
  HDC Get() const { return canvas_; }
  void ExpectTheForm() const {
    const auto [colors, ofBoxes] = ColorsOf(canvas_, kWidth, kHeight);
    EXPECT_GT(colors, 3U);
    EXPECT_GT(ofBoxes, 1000);
    EXPECT_NE(GetPixel(canvas_, kWidth - 2, kHeight - 2), RGB(0, 0, 0)) << "not all of it";
  }

  static constexpr int kWidth = 400;
  static constexpr int kHeight = 300;

 private:
  HDC screen_;
  HDC canvas_;
  HBITMAP bitmap_ = nullptr;
};

TEST_F(DataTest, AnEnhancedMetafileShowsTheFormInItsSize) {
  STGMEDIUM medium = Data(CF_ENHMETAFILE, TYMED_ENHMF);
  ENHMETAHEADER header{};
  GetEnhMetaFileHeader(medium.hEnhMetaFile, sizeof header, &header);
  SIZEL size{};
  As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &size);
  EXPECT_NEAR(header.rclFrame.right - header.rclFrame.left, size.cx, 100);
  EXPECT_NEAR(header.rclFrame.bottom - header.rclFrame.top, size.cy, 100);
  const Canvas canvas;
  const RECT whole{0, 0, Canvas::kWidth, Canvas::kHeight};
  PlayEnhMetaFile(canvas.Get(), medium.hEnhMetaFile, &whole);
  canvas.ExpectTheForm();
  ReleaseStgMedium(&medium);
}

TEST_F(DataTest, AMetafileShowsTheFormAtAnySize) {
  STGMEDIUM medium = Data(CF_METAFILEPICT, TYMED_MFPICT);
  const auto* picture = static_cast<METAFILEPICT*>(GlobalLock(medium.hMetaFilePict));
  SIZEL size{};
  As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &size);
  EXPECT_EQ(picture->mm, MM_ANISOTROPIC);
  EXPECT_EQ(picture->xExt, size.cx);
  EXPECT_EQ(picture->yExt, size.cy);
  const Canvas canvas;
  SetMapMode(canvas.Get(), MM_ANISOTROPIC);
  SetViewportExtEx(canvas.Get(), Canvas::kWidth, Canvas::kHeight, nullptr);
  PlayMetaFile(canvas.Get(), picture->hMF);
  SetMapMode(canvas.Get(), MM_TEXT);
  canvas.ExpectTheForm();
  GlobalUnlock(medium.hMetaFilePict);
  ReleaseStgMedium(&medium);
}

TEST_F(DataTest, ABitmapShowsTheForm) {
  STGMEDIUM medium = Data(CF_DIB, TYMED_HGLOBAL);
  const auto* header = static_cast<BITMAPINFOHEADER*>(GlobalLock(medium.hGlobal));
  EXPECT_EQ(header->biWidth, 840);  // 12,600 twips at 96 pixels for each inch
  EXPECT_EQ(header->biHeight, 580);
  EXPECT_EQ(GlobalSize(medium.hGlobal) >= sizeof *header + header->biSizeImage, true);
  const Canvas canvas;
  StretchDIBits(canvas.Get(), 0, 0, Canvas::kWidth, Canvas::kHeight, 0, 0, header->biWidth,
                header->biHeight, header + 1, reinterpret_cast<const BITMAPINFO*>(header),
                DIB_RGB_COLORS, SRCCOPY);
  canvas.ExpectTheForm();
  GlobalUnlock(medium.hGlobal);
  ReleaseStgMedium(&medium);
}

TEST_F(DataTest, ItselfInAStorageIsACopy) {
  named().Put(L"prpSelectDoPart", L"x~y");
  named().Put(L"prpTab", Number(2));
  STGMEDIUM medium = Data(Registered(L"Embed Source"), TYMED_ISTORAGE);
  CLSID id{};
  EXPECT_EQ(ReadClassStg(medium.pstg, &id), S_OK);
  EXPECT_TRUE(IsEqualGUID(id, CLSID_ZOLT20MapControl));
  const auto other = NewControl();
  EXPECT_EQ(com::Query<IPersistStorage>(other.Get())->Load(medium.pstg), S_OK);
  ReleaseStgMedium(&medium);
  EXPECT_EQ(As<IPersistStreamInit>()->IsDirty(), S_OK);
  EXPECT_EQ(As<IPersistStorage>()->SaveCompleted(nullptr), E_UNEXPECTED) << "no save of its own";

  STGMEDIUM described = Data(Registered(L"Object Descriptor"), TYMED_HGLOBAL);
  const auto* object = static_cast<OBJECTDESCRIPTOR*>(GlobalLock(described.hGlobal));
  EXPECT_TRUE(IsEqualGUID(object->clsid, CLSID_ZOLT20MapControl));
  const auto* name = reinterpret_cast<const wchar_t*>(reinterpret_cast<const char*>(object) +
                                                      object->dwFullUserTypeName);
  EXPECT_EQ(std::wstring(name), L"ZOLT20MapControl");
  GlobalUnlock(described.hGlobal);
  ReleaseStgMedium(&described);
}

class DataSink final : public IAdviseSink {
 public:
  STDMETHODIMP QueryInterface(REFIID, void** object) override {
    *object = static_cast<IAdviseSink*>(this);
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM* medium) override {
    media.push_back(medium->tymed);
  }
  STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override { ++views; }
  STDMETHODIMP_(void) OnRename(IMoniker*) override {}
  STDMETHODIMP_(void) OnSave() override { ++saves; }
  STDMETHODIMP_(void) OnClose() override {}

  std::vector<DWORD> media;
  int views = 0;
  int saves = 0;
};

TEST_F(DataTest, WhoWantsToKnowIsToldOfOtherData) {
  DataSink sink;
  DWORD connection = 0;
  FORMATETC format = Format(CF_METAFILEPICT, TYMED_MFPICT);
  ASSERT_EQ(data_->DAdvise(&format, 0, &sink, &connection), S_OK);
  named().Put(L"prpTab", Number(1));
  EXPECT_EQ(sink.media, std::vector<DWORD>{TYMED_MFPICT});
  EXPECT_EQ(data_->DUnadvise(connection), S_OK);
  EXPECT_EQ(data_->DUnadvise(connection), OLE_E_NOCONNECTION);
  named().Put(L"prpTab", Number(2));
  EXPECT_EQ(sink.media.size(), 1U);
  FORMATETC text = Format(CF_TEXT, TYMED_HGLOBAL);
  EXPECT_EQ(data_->DAdvise(&text, 0, &sink, &connection), DV_E_FORMATETC);
  ASSERT_EQ(data_->DAdvise(&format, ADVF_NODATA | ADVF_DATAONSTOP, &sink, &connection), S_OK);
  sink.media.clear();
  As<IOleObject>()->Close(OLECLOSE_NOSAVE);
  EXPECT_EQ(sink.media.size(), 1U);
  data_->DUnadvise(connection);
}

// Verbs.

TEST_F(DataTest, ItsVerbsStandNowhereButInIt) {
  Pointer<IEnumOLEVERB> verbs;
  ASSERT_EQ(As<IOleObject>()->EnumVerbs(verbs.Put()), S_OK);
  std::map<LONG, std::wstring> seen;
  for (OLEVERB verb{}; verbs->Next(1, &verb, nullptr) == S_OK;) {
    const bool isOnMenu = (verb.grfAttribs & OLEVERBATTRIB_ONCONTAINERMENU) != 0;
    EXPECT_EQ(isOnMenu, verb.lpszVerbName != nullptr);
    seen[verb.lVerb] = isOnMenu ? verb.lpszVerbName : L"";
    CoTaskMemFree(verb.lpszVerbName);
  }
  EXPECT_EQ(seen, (std::map<LONG, std::wstring>{{OLEIVERB_INPLACEACTIVATE, L""},
                                                {OLEIVERB_UIACTIVATE, L""},
                                                {OLEIVERB_HIDE, L""},
                                                {OLEIVERB_SHOW, L""},
                                                {OLEIVERB_PRIMARY, L"&Edit"}}));
  Pointer<IEnumOLEVERB> clone;
  verbs->Reset();
  EXPECT_EQ(verbs->Clone(clone.Put()), S_OK);
  OLEVERB verb{};
  EXPECT_EQ(clone->Next(1, &verb, nullptr), S_OK);
  EXPECT_EQ(std::wstring(verb.lpszVerbName), L"&Edit");
  CoTaskMemFree(verb.lpszVerbName);
  for (const DWORD form : {USERCLASSTYPE_FULL, USERCLASSTYPE_SHORT, USERCLASSTYPE_APPNAME}) {
    LPOLESTR type = nullptr;
    EXPECT_EQ(As<IOleObject>()->GetUserType(form, &type), S_OK);
    EXPECT_EQ(std::wstring(type), L"ZOLT20MapControl");
    CoTaskMemFree(type);
  }
}

TEST_F(DataTest, ThePressThatActivatesItIsAPressOnWhatIsThere) {
  Container container(880, 620);
  ASSERT_EQ(container.Create(CLSID_ZOLT20MapControl), S_OK);
  ASSERT_EQ(container.Activate(), S_OK);
  Pump();
  const HWND done = WindowOf(container.Window(), L"cmdDone");
  RECT place{};
  GetWindowRect(done, &place);
  const auto control = com::Query<IOleInPlaceObject>(container.Control());
  EXPECT_EQ(control->InPlaceDeactivate(), S_OK);
  Listener listener(*container.Control());
  MSG press{};
  press.message = WM_LBUTTONDOWN;
  press.wParam = MK_LBUTTON;
  press.pt = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
  RECT inside{};
  GetClientRect(container.Window(), &inside);
  EXPECT_EQ(com::Query<IOleObject>(container.Control())
                ->DoVerb(OLEIVERB_PRIMARY, &press, &container, 0, container.Window(), &inside),
            S_OK);
  Pump();
  const HWND again = WindowOf(container.Window(), L"cmdDone");
  EXPECT_EQ(GetCapture(), again);
  SendMessageW(again, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  EXPECT_EQ(listener.told, std::vector<std::string>{"event 2"});
}

// One call instead of many.

TEST_F(DataTest, OneCallConnectsIt) {
  Container container(880, 620);
  ASSERT_EQ(container.Create(CLSID_ZOLT20MapControl), S_OK);
  const auto quick = com::Query<IQuickActivate>(container.Control());
  ASSERT_TRUE(quick);
  const auto control = Pointer(container.Control());
  Listener listener(*control.Get());
  listener.Leave();
  DataSink sink;
  QACONTAINER given{};
  given.cbSize = sizeof given;
  given.pClientSite = &container;
  given.pUnkEventSink = static_cast<IDispatch*>(&listener);
  given.pPropertyNotifySink = &listener;
  QACONTROL taken{};
  EXPECT_EQ(quick->QuickActivate(&given, &taken), E_INVALIDARG);
  taken.cbSize = sizeof taken;
  EXPECT_EQ(quick->QuickActivate(&given, &taken), S_OK);
  DWORD status = 0;
  com::Query<IOleObject>(control.Get())->GetMiscStatus(DVASPECT_CONTENT, &status);
  EXPECT_EQ(taken.dwMiscStatus, status);
  EXPECT_EQ(taken.dwViewStatus, static_cast<DWORD>(VIEWSTATUS_OPAQUE));
  EXPECT_EQ(taken.dwPointerActivationPolicy, static_cast<DWORD>(POINTERINACTIVE_ACTIVATEONENTRY));
  EXPECT_NE(taken.dwEventCookie, 0U);
  EXPECT_NE(taken.dwPropNotifyCookie, 0U);
  const auto byName = com::Query<IDispatch>(control.Get());
  (Named{*byName.Get()}.Put(L"prpTab", Number(1)));
  EXPECT_EQ(listener.told, std::vector<std::string>{"changed 4"});
  SIZEL size{9000, 7000};
  SIZEL now{};
  EXPECT_EQ(quick->SetContentExtent(&size), S_OK);
  EXPECT_EQ(quick->GetContentExtent(&now), S_OK);
  EXPECT_EQ(now.cx, 9000);
  Pointer<IConnectionPoint> point;
  const auto points = com::Query<IConnectionPointContainer>(control.Get());
  points->FindConnectionPoint(DIID___ZOLT20MapControl, point.Put());
  EXPECT_EQ(point->Unadvise(taken.dwEventCookie), S_OK);
  points->FindConnectionPoint(IID_IPropertyNotifySink, point.Put());
  EXPECT_EQ(point->Unadvise(taken.dwPropNotifyCookie), S_OK);
}

TEST_F(DataTest, WithoutAWindowItWantsOneWhenTheMouseComes) {
  const auto pointer = As<IPointerInactive>();
  ASSERT_TRUE(pointer);
  DWORD policy = 0;
  EXPECT_EQ(pointer->GetActivationPolicy(&policy), S_OK);
  EXPECT_EQ(policy, static_cast<DWORD>(POINTERINACTIVE_ACTIVATEONENTRY));
  const RECT bounds{0, 0, 400, 300};
  EXPECT_EQ(pointer->OnInactiveMouseMove(&bounds, 10, 10, 0), S_OK);
  EXPECT_EQ(pointer->OnInactiveMouseMove(nullptr, 10, 10, 0), E_POINTER);
  EXPECT_EQ(pointer->OnInactiveSetCursor(&bounds, 10, 10, WM_MOUSEMOVE, FALSE), S_FALSE);
  SetCursor(LoadCursorW(nullptr, IDC_WAIT));
  EXPECT_EQ(pointer->OnInactiveSetCursor(&bounds, 10, 10, WM_MOUSEMOVE, TRUE), S_OK);
  EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
}

}  // namespace
}  // namespace zolt20::tests
