// The control in a document that is stored and opened, drawn, copied and worked at.
#include "tests/com/document.h"

#include <map>

#include "tests/com/com_test.h"

namespace zolt20::tests {
namespace {

// The document keeps it.
Named NamedOf(const Document& document) {
  const auto byName = com::Query<IDispatch>(document.Object());
  return {*byName.Get()};
}

// What would be stored of a control.
std::string BytesOf(IUnknown* control) {
  Pointer<IStream> stream;
  CreateStreamOnHGlobal(nullptr, TRUE, stream.Put());
  com::Query<IPersistStreamInit>(control)->Save(stream.Get(), FALSE);
  STATSTG state{};
  stream->Stat(&state, STATFLAG_NONAME);
  std::string bytes(static_cast<std::size_t>(state.cbSize.QuadPart), '\0');
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
  return bytes;
}

void ExpectDrawn(IUnknown* object) {
  const HDC screen = GetDC(nullptr);
  const HDC canvas = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, 400, 300);
  SelectObject(canvas, bitmap);
  PatBlt(canvas, 0, 0, 400, 300, BLACKNESS);
  const RECT place{0, 0, 400, 300};
  EXPECT_EQ(OleDraw(object, DVASPECT_CONTENT, canvas, &place), S_OK);
  std::map<COLORREF, int> colors;
  for (int y = 0; y < 300; y += 3) {
    for (int x = 0; x < 400; x += 3)
      ++colors[GetPixel(canvas, x, y)];
  }
  EXPECT_GT(colors.size(), 3U);
  EXPECT_GT(colors[GetSysColor(COLOR_WINDOW)], 1000);
  DeleteDC(canvas);
  DeleteObject(bitmap);
  ReleaseDC(nullptr, screen);
}

class RenderingTest : public testing::TestWithParam<DWORD> {};

TEST_P(RenderingTest, AControlIsInsertedStoredAndOpened) {
  Document document;
  ASSERT_EQ(document.Insert(GetParam()), S_OK);
  NamedOf(document).Put(L"prpSelectDoPart", L"x~y");
  NamedOf(document).Put(L"prpTab", Number(2));
  ExpectDrawn(document.Drawn());
  ASSERT_EQ(document.Save(), S_OK);
  EXPECT_EQ(com::Query<IPersistStorage>(document.Object())->IsDirty(), S_FALSE);
  document.Close();
  ASSERT_EQ(document.Open(), S_OK);
  const auto fresh = BytesOf(document.Object());
  EXPECT_EQ(com::Query<IPersistStorage>(document.Object())->IsDirty(), S_FALSE);
  NamedOf(document).Put(L"prpTab", Number(0));
  EXPECT_NE(BytesOf(document.Object()), fresh) << "the page is what was stored";
  ASSERT_EQ(document.Activate(), S_OK);
  EXPECT_NE(WindowOf(document.Site().Window(), L"lsttables"), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Each, RenderingTest,
                         testing::Values(DWORD{OLERENDER_NONE}, DWORD{OLERENDER_DRAW},
                                         DWORD{OLERENDER_FORMAT}));

TEST(DocumentTest, ThePictureIsThereWithoutTheControl) {
  Document document;
  ASSERT_EQ(document.Insert(OLERENDER_DRAW), S_OK);
  ASSERT_EQ(document.Save(), S_OK);
  document.Close();
  ASSERT_EQ(document.OpenPicture(), S_OK);
  EXPECT_EQ(document.Object(), nullptr);
  ExpectDrawn(document.Drawn());
}

TEST(DocumentTest, WhatIsDoneInPlaceIsStored) {
  Document document;
  ASSERT_EQ(document.Insert(OLERENDER_NONE), S_OK);
  ASSERT_EQ(document.Activate(OLEIVERB_PRIMARY), S_OK);
  Pump();
  NamedOf(document).Put(L"prpTab", Number(4));
  EXPECT_EQ(com::Query<IOleInPlaceObject>(document.Object())->InPlaceDeactivate(), S_OK);
  ExpectDrawn(document.Drawn());
  const std::string before = BytesOf(document.Object());
  ASSERT_EQ(document.Save(), S_OK);
  document.Close();
  ASSERT_EQ(document.Open(), S_OK);
  ASSERT_EQ(document.Activate(OLEIVERB_PRIMARY), S_OK);
  // The table and field lists are stored as nothing, and so is what they hold here.
  EXPECT_EQ(BytesOf(document.Object()), before);
}

TEST(DocumentTest, ACopyIsInsertedElsewhere) {
  Document one;
  ASSERT_EQ(one.Insert(OLERENDER_NONE), S_OK);
  NamedOf(one).Put(L"prpTab", Number(3));
  Document other;
  ASSERT_EQ(other.InsertFrom(*com::Query<IDataObject>(one.Object()).Get()), S_OK);
  EXPECT_EQ(BytesOf(other.Object()), BytesOf(one.Object()));
  ASSERT_EQ(other.Activate(), S_OK);
  ExpectDrawn(other.Drawn());
}

TEST(DocumentTest, ClosingSavesWhatIsNotStored) {
  Document document;
  ASSERT_EQ(document.Insert(OLERENDER_NONE), S_OK);
  const auto object = com::Query<IOleObject>(document.Object());
  EXPECT_EQ(object->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
  EXPECT_EQ(document.Site().told, std::vector<std::string>{});
  NamedOf(document).Put(L"prpTab", Number(3));
  EXPECT_EQ(object->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
  EXPECT_EQ(document.Site().told, std::vector<std::string>{"save"});
}

// The recorded sessions, each on a control that was stored and opened first.

class DocumentSessionsTest : public testing::TestWithParam<std::wstring> {};

TEST_P(DocumentSessionsTest, GoesAsItWasRecorded) {
  std::optional<Document> document;
  SessionPlayer player([&document] {
    document.emplace();
    EXPECT_EQ(document->Insert(OLERENDER_DRAW), S_OK);
    EXPECT_EQ(document->Save(), S_OK);
    document->Close();
    EXPECT_EQ(document->Open(), S_OK);
    EXPECT_EQ(document->Activate(), S_OK);
    Pump();
    return SessionPlayer::Embedded{Pointer(document->Object()), document->Site().Window()};
  });
  EXPECT_EQ(player.Play(GetParam()), std::vector<std::string>{});
  EXPECT_GT(player.counts().personLines, 10);
  EXPECT_EQ(document->Save(), S_OK);
  document->Close();
  EXPECT_EQ(document->Open(), S_OK);
}

std::string NameOf(const testing::TestParamInfo<std::wstring>& session) {
  std::string name;
  for (const wchar_t each : session.param.substr(session.param.rfind(L'\\') + 1)) {
    if (each == L'.') break;
    if (each != L'-') name += static_cast<char>(each);
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(Recorded, DocumentSessionsTest, testing::ValuesIn(SessionsIn(Sessions())),
                         NameOf);

}  // namespace
}  // namespace zolt20::tests
