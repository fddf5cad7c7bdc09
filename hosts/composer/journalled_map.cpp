// The part of RecordedMap that writes its steps to the journal and replays the steps of a left
// journal.
#include <algorithm>
#include <stdexcept>

#include "faces/qt/later.h"
#include "faces/qt/qt_text.h"
#include "hosts/composer/journal.h"
#include "hosts/composer/recorded_map.h"
#include "hosts/kit/request.h"
#include "hosts/kit/text_coding.h"
#include "surface/surface.h"

namespace zolt20::composer {
namespace {

using qt::ToQt;
using qt::View;

// These throw nlohmann's exceptions when the object has no such member.
QString TextIn(const nlohmann::ordered_json& object, const char* key) {
  return ToQt(hosts::FromJsonText(object.at(key).get_ref<const std::string&>()));
}
int NumberIn(const nlohmann::ordered_json& object, const char* key) {
  return object.at(key).get<int>();
}

// The length of the common prefix of two texts.
qsizetype AlikeAtFirst(QStringView a, QStringView b) {
  const auto [here, there] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
  return here - a.begin();
}

// Replaces the text of a typing step by its difference to the text before, which keeps the journal
// short.
void TakeEdit(nlohmann::ordered_json& step, QStringView before, QStringView after) {
  const qsizetype at = AlikeAtFirst(before, after);
  qsizetype same = 0;
  const qsizetype most = std::min(before.size(), after.size()) - at;
  while (same < most && before[before.size() - 1 - same] == after[after.size() - 1 - same])
    ++same;
  step["at"] = at;
  step["removed"] = before.size() - at - same;
  step["text"] = hosts::ToJsonText(View(after.mid(at, after.size() - at - same).toString()));
}

QString AfterEdit(const nlohmann::ordered_json& step, const QString& before) {
  const int at = NumberIn(step, "at");
  const int removed = NumberIn(step, "removed");
  if (at < 0 || removed < 0 || at > before.size() || removed > before.size() - at)
    throw hosts::BadRequest("an edit of what is not there");
  return QString(before).replace(at, removed, TextIn(step, "text"));
}

bool AsksForComposer(const char* event) {
  return event != std::string_view("eventDone") && event != std::string_view("eventCancel");
}

bool GoesOnInBox(const QByteArray& step, const QByteArray& next) {
  const QByteArray box = step.left(step.indexOf(',', step.indexOf(',') + 1));
  return next.startsWith(box) && next.contains(R"(","at":)");
}

}  // namespace

// To the journal.

void RecordedMap::ToJournal(const Json& step, bool isChange) {
  if (journal_ != nullptr && !isPlaying_) journal_->Keep(depth_, step, isChange);
}

void RecordedMap::KeepStep(const ZOLT20Gesture& gesture, Json step) {
  const QString textBefore = std::exchange(keptText_, gesture.text);
  const QString boxBefore = std::exchange(keptIn_, gesture.control);
  if (gesture.verb == u"type" && gesture.goesOn && boxBefore == gesture.control) {
    TakeEdit(step, textBefore, gesture.text);
  } else if (gesture.verb == u"type" && !step.contains("text")) {
    step["text"] = hosts::ToJsonText(View(gesture.text));
  }
  ToJournal(step, IsChange(gesture) && !isOpening_);
}

// Notes that an event of the control begins. A nested composer that the event opens writes to the
// journal before the gesture ends.
void RecordedMap::Note(const char* event) {
  event_ = event;
  if (AsksForComposer(event) && !std::exchange(isAskedAgain_, false))
    ToJournal({{"ask", RequestOf(gestureInProgress())}}, false);
  if (!isPlaying_ || played_.value("event", "") != event) return;
  const Json answers = std::exchange(played_, Json())["with"];
  for (const Json& answer : answers) {
    if (answer.contains("get")) {
      ReadResult();
    } else {
      WriteAgain(answer);
    }
  }
}

// From the journal.

void RecordedMap::KeepIn(Journal& journal) {
  const std::vector<QByteArray> steps = journal.TakeWaiting(0);
  if (steps.empty()) journal.Begin();
  Play(steps);
  journal_ = &journal;
  PayOwed();
}

void RecordedMap::KeepWithin(const RecordedMap& asking, const QString& title) {
  if (asking.journal_ == nullptr) return;
  depth_ = asking.depth_ + 1;
  const std::vector<QByteArray> steps = asking.journal_->TakeWaiting(depth_);
  Play(steps);
  journal_ = asking.journal_;
  PayOwed();
  if (!steps.empty()) return;
  Json opening = Json::array();
  for (std::size_t line = kCatalogueLines; line < lines_.size(); ++line)
    opening.push_back(FromJsonLine(TextOf(lines_[line])));
  ToJournal({{"window", hosts::ToJsonText(View(title))}, {"opening", opening}}, false);
}

bool RecordedMap::Play(const std::vector<QByteArray>& steps) {
  isPlaying_ = true;
  bool isPlayed = true;
  try {
    for (std::size_t i = 0; i < steps.size(); ++i) {
      const bool goesOn = i + 1 < steps.size() && GoesOnInBox(steps[i], steps[i + 1]);
      PlayStep(FromJsonLine(steps[i]), goesOn);
    }
  } catch (const std::exception&) {
    isPlayed = false;
  }
  isPlaying_ = false;
  return isPlayed;
}

void RecordedMap::PlayStep(const Json& step, bool goesOn) {
  // Kept edits are owed until the journal's own step puts them in; any step but a change of focus
  // ends that.
  if (step.value("user", "") != "focus") owed_.reset();
  if (step.contains("ask")) {
    // Deferred until the event loop runs: this opens the nested window and waits for its answer.
    qt::DoLater(*this, [this, request = step["ask"]] { AskAgain(request); });
  } else if (step.contains("user")) {
    PlayGesture(step, goesOn);
  } else if (step.contains("undo")) {
    undo();
  } else if (step.contains("redo")) {
    redo();
  } else if (step.contains("note")) {
    WriteNotes(NotesFromJson(step["note"]), tr("Note"));
  } else if (step.contains("settled")) {
    TakeNotes(NotesFromJson(step["notes"]));
  } else if (step.contains("notes")) {
    FollowNotes(NotesFromJson(step["notes"]));
  } else if (step.contains("settle")) {
    Settle(TextIn(step, "settle"));
  } else if (step.contains("get")) {
    ReadResult();
  } else if (step.contains("set")) {
    try {
      WriteAgain(step);
    } catch (const RuntimeError&) {
      // The step failed when it was recorded, too.
    }
  }
}

void RecordedMap::BeginEdit(qsizetype first, qsizetype last) {
  if (!std::exchange(isAskedAgain_, false)) ToJournal({{"ask", {{"edit", {first, last}}}}}, false);
}

void RecordedMap::EndEdit() {
  ToJournal({{"over", true}}, false);
}

void RecordedMap::AskAgain(const Json& request) try {
  isAskedAgain_ = true;
  if (request.contains("edit")) {
    const Json& places = request["edit"];
    emit EditAskedAgain(places.at(0).get<qsizetype>(), places.at(1).get<qsizetype>());
  } else {
    MakeGesture(request);
  }
  isAskedAgain_ = false;
} catch (const std::exception&) {
  isAskedAgain_ = false;
}

// In a box without handlers only the last text of a run of typing matters.
void RecordedMap::PlayGesture(const Json& step, bool goesOn) {
  Json request = step;
  if (step["user"] == "type") {
    playedText_ = step.contains("at") ? AfterEdit(step, playedText_) : TextIn(step, "text");
    const Control* box = form().Find(step.at("control").get_ref<const std::string&>());
    if (goesOn && box != nullptr && box->kind() == Kind::SyntaxTextBox) return;
    request["text"] = hosts::ToJsonText(View(playedText_));
  }
  played_ = {{"event", step.value("event", "")}, {"with", step.value("with", Json::array())}};
  MakeGesture(request);
  played_ = Json();
}

void RecordedMap::WriteAgain(const Json& write) {
  const auto& property = write.at("set").get_ref<const std::string&>();
  if (write.at("value").is_string()) {
    Write(property.c_str(), TextIn(write, "value"));
  } else {
    Write(property.c_str(), NumberIn(write, "value"));
  }
}

void RecordedMap::MakeGesture(const Json& request) {
  hosts::JsonReader reader;
  makeGesture(hosts::ReadGesture(reader.Read(JsonLine(request).toStdString()), form()));
}

void RecordedMap::MakeGestureOfOpening(const Json& request) {
  isOpening_ = true;
  MakeGesture(request);
  isOpening_ = false;
}

void RecordedMap::showMessage(const QString& text, const QString& title) {
  if (!isPlaying_) ZOLT20MapWidget::showMessage(text, title);
}

}  // namespace zolt20::composer
