#include "tests/com/form_hands.h"

#include <any>
#include <utility>

#include "hosts/automation/dump.h"
#include "hosts/kit/request.h"
#include "tests/support/direct_road.h"

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kNone = -1;
constexpr wchar_t kClass[] = L"ZOLT20.FrameOfForm";

HWND MakeFrame() {
  WNDCLASSW description{};
  description.lpfnWndProc = DefWindowProcW;
  description.hInstance = GetModuleHandleW(nullptr);
  description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  description.lpszClassName = kClass;
  RegisterClassW(&description);
  RECT frame{0, 0, 880, 620};
  AdjustWindowRect(&frame, WS_OVERLAPPEDWINDOW, FALSE);
  return CreateWindowW(kClass, L"Form", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20,
                       frame.right - frame.left, frame.bottom - frame.top, nullptr, nullptr,
                       description.hInstance, nullptr);
}

int PlaceIn(const faces::Person& person) {
  const auto* place = std::any_cast<int>(&person.hostData());
  return place == nullptr ? kNone : *place;
}

}  // namespace

FormHands::FormHands() : frame_(MakeFrame()) {
  control_.UserControl_InitProperties();
  RECT place{};
  GetClientRect(frame_, &place);
  window_ = com::FormWindow::Make(frame_, place, control_, person_, *this);
  window_->ShowChanges();
  window_->Show(true);
  SetForegroundWindow(frame_);
  window_->TakeFocus();
}

FormHands::~FormHands() {
  window_.reset();
  DestroyWindow(frame_);
  zolt20::tests::Pump();
}

void FormHands::CarryOut(const Json& request) {
  if (request.contains("answer")) {
    answers_[request["answer"]] = request["with"];
    return;
  }
  Keep(request);
  const bool writes = !request.contains("get");
  person_.Try([&] { CallOf(request)(control_); }, writes);
  window_->ShowChanges();
}

void FormHands::Raised(const char* event) {
  window_->ShowChanges();
  raised_ = event;
  try {
    for (const Json& request : answers_[event])
      person_.Call([&] { CallOf(request)(control_); });
  } catch (const RuntimeError&) {
    // The answer ends there.
  }
}

void FormHands::GestureEnds() noexcept {
  if (--gesturesInProgress_ > 0) return;
  if (person_.madeCount() != heardOf_) {
    heardOf_ = person_.madeCount();
    gestures_.push_back(hosts::WriteGesture(person_.made().gesture));
    const auto answer = answers_.find(std::exchange(raised_, {}));
    if (answer != answers_.end()) Keep({{"answer", answer->first}, {"with", answer->second}});
    Keep(gestures_.back());
  }
  window_->ShowChanges();
}

std::string FormHands::TextOnSurface(const std::string& control) {
  return automation::Dump(Form())["controls"][control]["Text"];
}

void FormHands::Keep(const Json& line) {
  lines_.push_back({line, PlaceIn(person_)});
  person_.hostData() = static_cast<int>(lines_.size()) - 1;
}

std::vector<Json> FormHands::Record() const {
  std::vector<Json> record;
  for (int line = PlaceIn(person_); line != kNone;
       line = lines_[static_cast<std::size_t>(line)].before)
    record.insert(record.begin(), lines_[static_cast<std::size_t>(line)].text);
  return record;
}

}  // namespace zolt20::tests
