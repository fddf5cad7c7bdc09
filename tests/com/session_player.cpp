#include "tests/com/session_player.h"

#include <commctrl.h>
#include <ole2.h>
#include <olectl.h>
#include <richedit.h>

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <sstream>
#include <string_view>

#include "ZOLT20MappingCtrl.h"
#include "tests/com/message_boxes.h"

namespace zolt20::tests {
namespace {

using Json = nlohmann::json;

std::wstring Wide(const std::string& text) {
  std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(
                        CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0)),
                    L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(),
                      static_cast<int>(wide.size()));
  return wide;
}

std::string Narrow(const std::wstring& text) {
  std::string narrow(
      static_cast<std::size_t>(WideCharToMultiByte(
          CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0, nullptr, nullptr)),
      '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), narrow.data(),
                      static_cast<int>(narrow.size()), nullptr, nullptr);
  return narrow;
}

// None when there is no such file.
std::optional<std::string> BytesOf(const std::wstring& path) {
  const HANDLE file =
      CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return std::nullopt;
  std::string bytes(GetFileSize(file, nullptr), '\0');
  DWORD read = 0;
  ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
  CloseHandle(file);
  return bytes;
}

std::vector<std::string> LinesOf(const std::wstring& path) {
  std::vector<std::string> lines;
  std::istringstream stream(BytesOf(path).value_or(""));
  for (std::string line; std::getline(stream, line);)
    lines.push_back(line);
  return lines;
}

constexpr const char* kEvents[] = {"eventCancel", "eventDone", "eventSubQuery", "eventCondition",
                                   "eventFunction"};

// The smallest part of a value, enough to recognise it.
Json ToJson(const VARIANT& value) {
  switch (V_VT(&value)) {
    case VT_BSTR:
      return Narrow(std::wstring(V_BSTR(&value), SysStringLen(V_BSTR(&value))));
    case VT_I2:
      return V_I2(&value);
    case VT_BOOL:
      return V_BOOL(&value) != VARIANT_FALSE;
    default:
      return nullptr;
  }
}

void ToVariant(const Json& value, VARIANT& variant) {
  VariantInit(&variant);
  if (value.is_string()) {
    const std::wstring text = Wide(value.get<std::string>());
    V_VT(&variant) = VT_BSTR;
    V_BSTR(&variant) = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  } else if (value.is_boolean()) {
    V_VT(&variant) = VT_BOOL;
    V_BOOL(&variant) = value.get<bool>() ? VARIANT_TRUE : VARIANT_FALSE;
  } else if (value.is_number()) {
    V_VT(&variant) = VT_I4;
    V_I4(&variant) = value.get<int>();
  }
}

// The bag of a container, in memory.
class MemoryBag final : public IPropertyBag {
 public:
  explicit MemoryBag(Json start = Json::object()) : values(std::move(start)) {}
  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = id == IID_IUnknown || id == IID_IPropertyBag ? this : nullptr;
    return *object == nullptr ? E_NOINTERFACE : S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog* /*log*/) override {
    const std::string key = Narrow(name);
    if (!values.contains(key)) return E_INVALIDARG;
    VariantClear(value);
    ToVariant(values[key], *value);
    return S_OK;
  }
  STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override {
    values[Narrow(name)] = ToJson(*value);
    return S_OK;
  }

  Json values;
};

// As the window shows it, which has CR LF for each line end.
std::string TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1,
                    L'\0');
  text.resize(static_cast<std::size_t>(
      SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return Narrow(text);
}

LPARAM Point(int x, int y) {
  return MAKELPARAM(x, y);
}

class Playing final : public IDispatch, public IPropertyNotifySink {
 public:
  Playing(const SessionPlayer::Embed& embed, SessionPlayer::Counts& counts)
      : embed_(embed), counts_(counts) {
    Begin();
  }
  ~Playing() { End(); }
  Playing(const Playing&) = delete;
  Playing& operator=(const Playing&) = delete;

  std::vector<std::string> Play(const std::wstring& path, int most);

  // The sinks: they live in this object, whose life the control does not decide.
  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (id == IID_IUnknown || id == IID_IDispatch || id == DIID___ZOLT20MapControl) {
      *object = static_cast<IDispatch*>(this);
    } else if (id == IID_IPropertyNotifySink) {
      *object = static_cast<IPropertyNotifySink*>(this);
    } else {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** /*info*/) override {
    return E_NOTIMPL;
  }
  STDMETHODIMP GetIDsOfNames(REFIID /*id*/, LPOLESTR* /*names*/, UINT /*count*/, LCID /*locale*/,
                             DISPID* /*ids*/) override {
    return E_NOTIMPL;
  }
  STDMETHODIMP Invoke(DISPID number, REFIID /*id*/, LCID /*locale*/, WORD /*flags*/,
                      DISPPARAMS* /*arguments*/, VARIANT* /*result*/, EXCEPINFO* /*exception*/,
                      UINT* /*wrong*/) override {
    const std::string event = kEvents[number - 1];
    log_.push_back({{"event", event}});
    ++counts_.events;
    if (answers_.count(event) == 0) return S_OK;
    for (const Json& request : answers_[event]) {
      const Json done = DoForHost(request);
      ++counts_.answers;
      Json entry{{"answered", NameOf(request)}};
      if (done.contains("value")) entry["value"] = done["value"];
      if (done.contains("error")) entry["error"] = done["error"];
      log_.push_back(entry);
      if (done.contains("error")) break;
    }
    return S_OK;
  }
  STDMETHODIMP OnChanged(DISPID number) override {
    log_.push_back({{"changed", names_.at(number)}});
    ++counts_.notices;
    return S_OK;
  }
  STDMETHODIMP OnRequestEdit(DISPID /*number*/) override { return S_OK; }

 private:
  // A new control from the container.
  void Begin() {
    SessionPlayer::Embedded made = embed_();
    container_ = made.container;
    control_ = com::Query<IDispatch>(made.control.Get());
    bag_ = com::Query<IPersistPropertyBag>(made.control.Get());
    eventCookie_ = Connect(DIID___ZOLT20MapControl, *static_cast<IDispatch*>(this));
    noticeCookie_ = Connect(IID_IPropertyNotifySink, *static_cast<IPropertyNotifySink*>(this));
  }
  void End() {
    if (const auto point = PointOf(DIID___ZOLT20MapControl)) point->Unadvise(eventCookie_);
    if (const auto point = PointOf(IID_IPropertyNotifySink)) point->Unadvise(noticeCookie_);
    bag_ = {};
    control_ = {};
  }

  com::Pointer<IConnectionPoint> PointOf(REFIID id) const {
    com::Pointer<IConnectionPoint> point;
    if (const auto points = control_.As<IConnectionPointContainer>())
      points->FindConnectionPoint(id, point.Put());
    return point;
  }
  DWORD Connect(REFIID id, IUnknown& sink) const {
    DWORD cookie = 0;
    if (const auto point = PointOf(id)) point->Advise(&sink, &cookie);
    return cookie;
  }

  static std::string NameOf(const Json& request) {
    for (const char* verb : {"set", "get", "call"}) {
      if (request.contains(verb)) return request[verb];
    }
    return "";
  }
  Json DoForHost(const Json& request);
  std::optional<std::string> DoForPerson(const Json& request);
  HWND Find(const std::string& name) const;
  void Empty();

  const SessionPlayer::Embed& embed_;
  SessionPlayer::Counts& counts_;
  HWND container_ = nullptr;
  com::Pointer<IDispatch> control_;
  com::Pointer<IPersistPropertyBag> bag_;
  DWORD eventCookie_ = 0;
  DWORD noticeCookie_ = 0;
  std::map<DISPID, std::string> names_;
  std::map<std::string, Json> answers_;
  std::vector<Json> log_;
};

Json Playing::DoForHost(const Json& request) {
  const std::string name = NameOf(request);
  std::wstring wideName = Wide(name);
  LPOLESTR names = wideName.data();
  DISPID number = 0;
  if (FAILED(control_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &number)))
    return {{"error", "name"}};
  names_[number] = name;
  VARIANT argument;
  VariantInit(&argument);
  VARIANT result;
  VariantInit(&result);
  EXCEPINFO exception{};
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS arguments{&argument, nullptr, 0, 0};
  WORD flags = DISPATCH_PROPERTYGET;
  if (request.contains("set")) {
    ToVariant(request["value"], argument);
    arguments = {&argument, &put, 1, 1};
    flags = DISPATCH_PROPERTYPUT;
  } else if (request.contains("call")) {
    flags = DISPATCH_METHOD;
    const Json args = request.value("args", Json::array());
    if (!args.empty()) {
      ToVariant(args[0], argument);
      arguments.cArgs = 1;
    }
  }
  const HRESULT done = control_->Invoke(number, IID_NULL, LOCALE_USER_DEFAULT, flags, &arguments,
                                        &result, &exception, nullptr);
  Json reply{{"ok", SUCCEEDED(done)}};
  if (FAILED(done)) {
    reply["error"] =
        static_cast<unsigned>(done == DISP_E_EXCEPTION ? exception.scode : done) & 0xFFFFU;
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
  } else if (!request.contains("set")) {
    reply["value"] = ToJson(result);
  }
  VariantClear(&argument);
  VariantClear(&result);
  return reply;
}

HWND Playing::Find(const std::string& name) const {
  struct Search {
    std::wstring name;
    HWND found = nullptr;
  } search{Wide(name)};
  EnumChildWindows(
      container_,
      [](HWND window, LPARAM data) WINAPI -> BOOL {
        auto& wanted = *reinterpret_cast<Search*>(data);
        const HANDLE atom = GetPropW(window, L"ZOLT20.Name");
        wchar_t text[64] = L"";
        if (atom != nullptr)
          GlobalGetAtomNameW(static_cast<ATOM>(reinterpret_cast<UINT_PTR>(atom)), text, 64);
        if (wanted.name != text) return TRUE;
        wanted.found = window;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

// Messages that wait, such as the answer to a message box.
void Playing::Empty() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

// The difference, or nothing.
std::optional<std::string> Playing::DoForPerson(const Json& request) {
  const std::string verb = request["user"];
  const std::string name = verb == "tab" ? "tabVrn" : request["control"].get<std::string>();
  const HWND window = Find(name);
  if (window == nullptr) return "no window for " + name;
  wchar_t kind[64] = L"";
  GetClassNameW(window, kind, 64);
  const std::wstring className = kind;
  const auto click = [window](const RECT& place, UINT message) {
    const LPARAM point = Point((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    SendMessageW(window, message, MK_LBUTTON, point);
    SendMessageW(window, WM_LBUTTONUP, 0, point);
  };
  if (verb == "tab") {
    RECT place{};
    SendMessageW(window, TCM_GETITEMRECT, request["page"].get<WPARAM>(),
                 reinterpret_cast<LPARAM>(&place));
    click(place, WM_LBUTTONDOWN);
  } else if (verb == "focus") {
    SetFocus(window);
  } else if (verb == "click" && className == L"Button") {
    SendMessageW(window, BM_CLICK, 0, 0);
  } else if ((verb == "click" || verb == "dblclick") && className == WC_LISTVIEWW) {
    const auto row = request["row"].get<WPARAM>();
    SendMessageW(window, LVM_ENSUREVISIBLE, row, FALSE);
    RECT place{};
    place.left = LVIR_LABEL;
    SendMessageW(window, LVM_GETITEMRECT, row, reinterpret_cast<LPARAM>(&place));
    place.right = place.left + 20;
    click(place, verb == "click" ? WM_LBUTTONDOWN : WM_LBUTTONDBLCLK);
  } else if (verb == "pick") {
    SetFocus(window);
    SendMessageW(window, CB_SHOWDROPDOWN, TRUE, 0);
    SendMessageW(window, CB_SETCURSEL, request["row"].get<WPARAM>(), 0);
    SendMessageW(window, WM_KEYDOWN, VK_RETURN, 0);
    SendMessageW(window, WM_KEYUP, VK_RETURN, 0);
  } else if (verb == "type") {
    HWND box = window;
    if (className == WC_COMBOBOXW) {
      COMBOBOXINFO info{};
      info.cbSize = sizeof info;
      GetComboBoxInfo(window, &info);
      box = info.hwndItem;
    }
    SetFocus(box);
    const std::wstring text = Wide(request["text"].get<std::string>());
    SendMessageW(box, EM_SETSEL, 0, -1);
    SendMessageW(box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
  } else if (verb == "key") {
    SetFocus(window);
    if (request.contains("from")) {
      const auto from = request["from"].get<WPARAM>();
      SendMessageW(window, EM_SETSEL, from, request.value("to", static_cast<LPARAM>(from)));
    }
    SendMessageW(window, WM_CHAR, request["code"].get<WPARAM>(), 0);
  } else if (verb == "scroll") {
    SetFocus(window);
    SendMessageW(GetParent(window), WM_VSCROLL,
                 MAKEWPARAM(SB_THUMBPOSITION, request["value"].get<int>()),
                 reinterpret_cast<LPARAM>(window));
  } else {
    return "no way to " + verb + " " + name;
  }
  return std::nullopt;
}

std::vector<std::string> Playing::Play(const std::wstring& path, int most) {
  std::vector<std::string> wrong;
  const std::vector<std::string> lines = LinesOf(path);
  const std::vector<std::string> replies =
      LinesOf(path.substr(0, path.rfind(L'.')) + L".replies.jsonl");
  if (lines.empty() || replies.empty()) return {"nothing to play in " + Narrow(path)};
  const MessageBoxes messages([this](const std::wstring& title, const std::wstring& text) {
    log_.push_back({{"message", Narrow(text)}, {"title", Narrow(title)}});
  });
  std::size_t next = 0;
  for (const std::string& line : lines) {
    if (line.empty() || line[0] == '#' || line.find_first_not_of(" \t\r") == std::string::npos)
      continue;
    if (most-- == 0) return wrong;
    const Json request = Json::parse(line);
    Json expected = Json::parse(replies.at(next++));
    const auto complain = [&](const std::string& what) {
      wrong.push_back(line.substr(0, 120) + ": " + what);
    };
    log_.clear();
    if (request.contains("user")) {
      ++counts_.personLines;
      if (expected.contains("refused")) {
        const HWND window = Find(request.value("control", "tabVrn"));
        if (window != nullptr && IsWindowVisible(window) && IsWindowEnabled(window))
          complain("could be done");
        continue;
      }
      if (const auto why = DoForPerson(request)) complain(*why);
      Empty();
    } else if (request.contains("answer")) {
      answers_[request["answer"]] = request["with"];
    } else if (request.contains("new")) {
      End();
      Begin();
      MemoryBag bag(request["new"].value("bag", Json::object()));
      if (request["new"].contains("bag") && bag_->Load(&bag, nullptr) != S_OK)
        complain("could not be loaded");
    } else if (request.contains("save")) {
      MemoryBag bag;
      bag_->Save(&bag, TRUE, TRUE);
      if (bag.values != expected["value"]) complain("saved " + bag.values.dump());
    } else if (!request.contains("dump")) {
      ++counts_.hostLines;
      const Json reply = DoForHost(request);
      if (reply["ok"] != expected["ok"]) complain("came " + reply.dump());
      if (reply.contains("value") && reply["value"] != expected["value"])
        complain("came " + reply["value"].dump());
      if (reply.contains("error") && expected.contains("error") &&
          reply["error"] != expected["error"]["number"]) {
        complain("came " + reply.dump());
      }
    }
    Json log = Json::array();
    for (Json entry : expected["log"]) {
      entry.erase("icon");
      entry.erase("buttons");
      log.push_back(entry);
    }
    if (Json(log_) != log) complain("log " + Json(log_).dump() + " and not " + log.dump());
  }
  const auto compare = [&](const std::string& what, const Json& now, const wchar_t* file) {
    const auto recorded = BytesOf(path.substr(0, path.rfind(L'.')) + file);
    if (!recorded || now != *recorded) wrong.push_back(what + " is " + now.dump());
  };
  compare("the Result", TextOf(Find("TxtOutput")), L".result.txt");
  compare("the selected fields", DoForHost({{"get", "prpstrSelectedFields"}})["value"],
          L".fields.txt");
  return wrong;
}

}  // namespace

std::vector<std::string> SessionPlayer::Play(const std::wstring& path) {
  return Playing(embed_, counts_).Play(path, -1);
}
std::vector<std::string> SessionPlayer::PlayTo(const std::wstring& path, int lines) {
  return Playing(embed_, counts_).Play(path, lines);
}

std::vector<std::wstring> SessionsIn(const std::wstring& folder) {
  constexpr std::wstring_view kReplies = L".replies.jsonl";
  std::vector<std::wstring> sessions;
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW((folder + L"\\*.jsonl").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return sessions;
  do {
    const std::wstring name = found.cFileName;
    if (name.size() < kReplies.size() ||
        name.compare(name.size() - kReplies.size(), kReplies.size(), kReplies) != 0) {
      sessions.push_back(folder + L"\\" + name);
    }
  } while (FindNextFileW(search, &found));
  FindClose(search);
  std::sort(sessions.begin(), sessions.end());
  return sessions;
}

}  // namespace zolt20::tests
