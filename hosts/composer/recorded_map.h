// The control with a catalogue, and a record of all that is done to it.
//
// The record is a session in the JSON lines that zolt20-host reads: the gestures of the person and
// the writes of the host. Writes within an event stand in the answer to it. Played, the record ends
// with the same Result. Steps that are undone are taken out of the record.
#pragma once

#include <QByteArray>
#include <QString>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <vector>

#include "faces/qt/map_widget.h"
#include "hosts/composer/kept_edits.h"
#include "hosts/composer/pages_text.h"
#include "hosts/kit/catalogue.h"
#include "language/node_notes.h"

namespace zolt20::composer {

class Journal;

class RecordedMap final : public ZOLT20MapWidget {
  Q_OBJECT

 public:
  /// Writes the tables and fields of the catalogue to the control. Throws RuntimeError
  /// as the properties do.
  explicit RecordedMap(const catalogue::Catalogue& catalogue, QWidget* parent = nullptr);

  /// Writes a property of the contract by its name. Runs its handlers and throws RuntimeError. A
  /// slot of an event must let the error out, since a played answer ends at a failing write too.
  void Write(const char* property, const QString& value);
  void Write(const char* property, int value);
  /// The value of prpStroutput. The read is recorded, since at a depth above 0 it changes the
  /// Result.
  QString ReadResult();

  /// Which contents of the pages are neither in the Result nor in the stored text.
  struct Pending {
    bool statement = false;  ///< a statement that Add To Result would write
    bool unapplied = false;  ///< a condition of the Where page that it leaves out
    bool loose = false;      ///< parts that it refuses or leaves out
    bool condition = false;  ///< texts of the Condition page
    bool Any() const { return statement || unapplied || loose || condition; }
  };
  Pending PendingOnPages() const;
  /// Whether closing now would lose anything: the Result differs from the stored text, or the pages
  /// have pending contents. Texts are compared, so a change that was taken back is none.
  bool IsChanged() const;
  /// Sets the stored text, and takes the contents of the pages as unchanged. A new control has no
  /// stored text.
  void Settle(const QString& stored = {});
  const QString& StoredText() const { return stored_; }
  /// Which buttons would add what is pending, and the Result afterwards.
  Addition WhatAddDoes() const;
  /// Presses the buttons of WhatAddDoes, as the person would.
  void AddPages();

  /// Replaces the Result, as one step of the person: Undo takes it back, and it is in the record
  /// and in the journal. `name` is the name of the step in the Edit menu.
  void WriteResult(const QString& text, const QString& name);
  /// The name of the step while WriteResult makes it; "" otherwise.
  const QString& StepName() const { return stepName_; }

  // Notes on statements of the Result, or of the stored text while the Result is empty. They belong
  // to the state of the control, so Undo and Redo restore them.

  using Notes = std::vector<language::NodeNote>;
  const Notes& NodeNotes() const;
  /// Sets the notes of the stored text, which are no change.
  void TakeNotes(const Notes& notes);
  /// Sets the notes as one step of the person.
  void WriteNotes(const Notes& notes, const QString& name);
  /// Sets the notes that belong to the text of the last step.
  void FollowNotes(const Notes& notes);
  /// Matches the notes to the present text.
  void CarryNotes();
  /// The text that the notes belong to, as it is now.
  QString NotedText() const;

  /// The session so far, one request on each line.
  QByteArray Record() const;

  // The journal. To be called before anything else is connected to the events: steps of a recovered
  // journal are made again within the call, and the writes within their events come from the
  // journal.

  /// Keeps the composer of a rule in a journal.
  void KeepIn(Journal& journal);
  /// From now on keeps this composer's steps in the journal of the composer `asking`, within whose
  /// event it opened. `title` is the title of this composer's window.
  void KeepWithin(const RecordedMap& asking, const QString& title);
  /// BeginEdit is called before a composer opens for this part of the rule's text, EndEdit after it
  /// closed without a new text.
  void BeginEdit(qsizetype first, qsizetype last);
  void EndEdit();
  /// Makes recorded steps again. False when they are not steps of this control.
  bool Play(const std::vector<QByteArray>& steps);
  /// Makes a gesture from its request. Throws hosts::BadRequest.
  void MakeGesture(const nlohmann::ordered_json& request);
  /// The same for a step that puts a stored statement onto the pages. It is not written to the
  /// journal.
  void MakeGestureOfOpening(const nlohmann::ordered_json& request);

 signals:
  /// WriteNotes made a step, whose name is StepName.
  void NotesWritten();
  /// The recovered journal ends while a composer for a part of the text is open. That composer is
  /// to be opened again, with BeginEdit.
  void EditAskedAgain(qsizetype first, qsizetype last);

 protected:
  /// Shows no message while steps are made again.
  void showMessage(const QString& text, const QString& title) override;
  /// Asks before a button overwrites a statement that was edited in the Result.
  bool mayPress(const QString& button) override;

 private:
  using Json = nlohmann::ordered_json;

  void AddLine(const Json& request);
  void AddTyped(const ZOLT20Gesture& gesture);
  void PutNotes(const Notes& notes);
  void Note(const char* event);
  void PlayStep(const Json& step, bool goesOn);
  void PlayGesture(const Json& step, bool goesOn);
  void WriteAgain(const Json& write);
  void AskAgain(const Json& request);
  static Json RequestOf(const ZOLT20Gesture& gesture);
  static bool IsChange(const ZOLT20Gesture& gesture);
  void ToJournal(const Json& step, bool isChange);
  void KeepStep(const ZOLT20Gesture& gesture, Json step);
  void Keep(const Json& request);
  void KeepGesture(const ZOLT20Gesture& gesture);
  MergedResult MergedWith(StringView written) const;
  void FollowEdits(const ZOLT20Gesture& gesture);
  void PayOwed();
  void TakeOwn();
  bool GoesOnTyping(const ZOLT20Gesture& gesture) const;

  static constexpr int kNone = -1;
  static constexpr std::size_t kCatalogueLines = 3;  // with which every record begins

  struct NotedNodes {
    QString text;
    Notes notes;
  };

  // What the composer adds to the state of the control.
  struct Place {
    int last = kNone;  // the line where the record stands
    QString added;     // the statement that Add To Result wrote last
    QString own;       // the Result as the control wrote it last
    std::shared_ptr<const NotedNodes> notes;
  };
  // The state before a button that is being pressed.
  struct Pressed {
    QString button;
    QString result;
    Place place;
  };
  Place Now() const;
  static QVariant ValueOf(const Place& place);
  void MoveTo(const Place& place);

  // A line of the record, and the index of the line before it. A line that was undone stays, since
  // Redo may bring it back after other lines were added.
  struct Line {
    QByteArray text;  // for typing made only when it is needed, as the text may be long
    int before;
    std::optional<ZOLT20Gesture> typed = std::nullopt;
  };
  const Line& At(int line) const;
  QByteArray TextOf(const Line& line) const;

  PagesText Pages() const { return reader_->Read(save()); }

  std::vector<Line> lines_;
  QString stored_;                       // the stored text
  PagesText settled_;                    // the pages at the last Settle
  Notes settledNotes_;                   // the notes at the last Settle
  std::unique_ptr<PagesReader> reader_;  // never null
  QString stepName_;
  std::optional<Pressed> pressed_;
  std::optional<QString> owed_;  // the edited Result, while steps are made again
  bool isAgreed_ = false;        // the person has agreed to what the buttons write
  QString typedIn_;              // the box that the last line types in
  const char* event_ = nullptr;  // the event that is being raised
  Json answers_ = Json::array();

  Journal* journal_ = nullptr;
  int depth_ = 0;              // how many composers this one is nested in
  QString keptIn_;             // the box of the last typing in the journal
  QString keptText_;           // the text of that box
  bool isPlaying_ = false;     // steps are made again and are in the journal already
  bool isOpening_ = false;     // steps put a stored statement onto the pages
  bool isAskedAgain_ = false;  // the gesture that raises the next event is in the journal already
  Json played_;                // the next event, and the writes within it
  QString playedText_;         // the text of the box that is being typed in
};

}  // namespace zolt20::composer
