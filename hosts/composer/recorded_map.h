// The control on a catalogue, with a record of all that is done to it.
//
// The record is a session in the JSON lines that zolt20-host plays: what the person does, and what
// the host writes, within an event as the answer to it. Played, it ends with the same Result. What
// is undone is taken out of it.
#pragma once

#include <QByteArray>
#include <QString>
#include <nlohmann/json.hpp>
#include <vector>

#include "faces/qt/map_widget.h"
#include "hosts/kit/catalogue.h"

namespace zolt20::composer {

class RecordedMap final : public ZOLT20MapWidget {
  Q_OBJECT

 public:
  /// Writes the lists of the catalogue. Throws RuntimeError as the properties do.
  explicit RecordedMap(const catalogue::Catalogue& catalogue, QWidget* parent = nullptr);

  /// Writes a property of the contract by its name. Runs its handlers and throws RuntimeError,
  /// which a slot of an event lets out: played, an answer ends at a write that fails.
  void Write(const char* property, const QString& value);
  void Write(const char* property, int value);
  /// The Result, by prpStroutput. Recorded, since at a depth above 0 a read changes it.
  QString ReadResult();

  /// Whether the person did anything since the last Settle, or since the control was made; moving
  /// about is nothing, and so are Done and Cancel.
  bool IsChanged() const;
  /// What was done is stored somewhere.
  void Settle();

  /// The session so far, one request a line.
  QByteArray Record() const;

 private:
  using Json = nlohmann::ordered_json;

  void Keep(const Json& request);
  void KeepGesture(const ZOLT20Gesture& gesture);
  bool GoesOnTyping(const ZOLT20Gesture& gesture) const;

  static constexpr int kNone = -1;

  // Where the record stands; goes with the state of the control.
  struct Place {
    int last = kNone;  // line
    int change = 0;    // the number of the last one
  };
  Place Now() const;
  void MoveTo(Place place);

  // A line and the one before it in its record. One that was undone stays, since Redo may bring it
  // back after other lines were kept.
  struct Line {
    QByteArray text;
    int before;
  };
  const Line& At(int line) const;

  std::vector<Line> lines_;
  int changes_ = 0;              // all that there were, undone ones too
  int settledAt_ = 0;            // a change
  QString typedIn_;              // the box whose text the last line is
  const char* event_ = nullptr;  // the one that is being raised
  Json answers_ = Json::array();
};

}  // namespace zolt20::composer
