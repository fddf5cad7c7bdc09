// The control on a catalogue, with a record of all that is done to it.
//
// The record is a session in the JSON lines that zolt20-host plays: what the person does, and what
// the host writes, within an event as the answer to it. Played, it ends with the same Result. What
// is undone is taken out of it.
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
  /// Writes the lists of the catalogue. Throws RuntimeError as the properties do.
  explicit RecordedMap(const catalogue::Catalogue& catalogue, QWidget* parent = nullptr);

  /// Writes a property of the contract by its name. Runs its handlers and throws RuntimeError,
  /// which a slot of an event lets out: played, an answer ends at a write that fails.
  void Write(const char* property, const QString& value);
  void Write(const char* property, int value);
  /// The Result, by prpStroutput. Recorded, since at a depth above 0 a read changes it.
  QString ReadResult();

  /// What stands on the pages and neither in the Result nor in the stored text.
  struct Pending {
    bool statement = false;  ///< Add To Result would write another statement
    bool unapplied = false;  ///< a condition of the Where page that it passes over
    bool loose = false;      ///< parts that it would refuse or pass over
    bool condition = false;  ///< what is typed on the Condition page
    bool Any() const { return statement || unapplied || loose || condition; }
  };
  Pending PendingOnPages() const;
  /// Whether something would be lost now: the Result is another than the stored text, or something
  /// is pending on the pages. Texts are compared, so what comes back to where it was is no change.
  bool IsChanged() const;
  /// This is the stored text, and what stands on the pages now is no change. Nothing is stored of
  /// a control that was just made.
  void Settle(const QString& stored = {});
  const QString& StoredText() const { return stored_; }
  /// What the buttons of the pages would make of what is pending.
  Addition WhatAddDoes() const;
  /// Presses these buttons, as the person would.
  void AddPages();

  /// The Result becomes the text, which is one step of the person's: Undo takes it back, the record
  /// and the journal have it. The step is called by the name.
  void WriteResult(const QString& text, const QString& name);
  /// The name of the step that WriteResult is making; "" outside of it.
  const QString& StepName() const { return stepName_; }

  // Notes on nodes of the text: of the Result, or of the stored text where that is empty. They go
  // with the state, so Undo and Redo put them back.

  using Notes = std::vector<language::NodeNote>;
  const Notes& NodeNotes() const;
  /// Those of the stored text, which are no change.
  void TakeNotes(const Notes& notes);
  /// Notes become others, as one step of the person's.
  void WriteNotes(const Notes& notes, const QString& name);
  /// The text has become another one by the step before, and these are its notes.
  void FollowNotes(const Notes& notes);
  /// They become those of the text as it is now.
  void CarryNotes();
  /// The text that they are of, as it is now.
  QString NotedText() const;

  /// The session so far, one request a line.
  QByteArray Record() const;

  // The journal. Called before anybody else hears of events, since what a journal that was left has
  // of this composer is made again here: the writes within events come out of it.

  /// The composer of a rule.
  void KeepIn(Journal& journal);
  /// One within an event of another, whose journal it keeps, and the title of its window.
  void KeepWithin(const RecordedMap& asking, const QString& title);
  /// A composer is about to open for the part of the rule's text between two places, and has closed
  /// with nothing to put back.
  void BeginEdit(qsizetype first, qsizetype last);
  void EndEdit();
  /// Makes steps again. False when they can't be those of this control.
  bool Play(const std::vector<QByteArray>& steps);
  /// A gesture as a request. Throws hosts::BadRequest.
  void MakeGesture(const nlohmann::ordered_json& request);
  /// The same for a stored statement that comes onto the pages: nothing of it is to be brought
  /// back.
  void MakeGestureOfOpening(const nlohmann::ordered_json& request);

 signals:
  /// WriteNotes made a step; StepName has its name.
  void NotesWritten();
  /// The journal that was left ends within a composer for a part of the text, which is to open
  /// again, with BeginEdit.
  void EditAskedAgain(qsizetype first, qsizetype last);

 protected:
  /// While steps are made again, nobody has to answer.
  void showMessage(const QString& text, const QString& title) override;
  /// Asks before a button writes a statement anew that was edited in the Result.
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

  // Goes with the state of the control.
  struct Place {
    int last = kNone;  // the line where the record stands
    QString added;     // the statement that Add To Result wrote last
    QString own;       // the Result as the control wrote it last
    std::shared_ptr<const NotedNodes> notes;
  };
  // A button of the form that is being pressed: what was before.
  struct Pressed {
    QString button;
    QString result;
    Place place;
  };
  Place Now() const;
  static QVariant ValueOf(const Place& place);
  void MoveTo(const Place& place);

  // A line and the one before it in its record. One that was undone stays, since Redo may bring it
  // back after other lines were kept.
  struct Line {
    QByteArray text;  // made of what is typed when somebody wants it, as the text may be long
    int before;
    std::optional<ZOLT20Gesture> typed = std::nullopt;
  };
  const Line& At(int line) const;
  QByteArray TextOf(const Line& line) const;

  PagesText Pages() const { return reader_->Read(save()); }

  std::vector<Line> lines_;
  QString stored_;                       // the text of the last Settle
  PagesText settled_;                    // and the pages then
  Notes settledNotes_;                   // and the notes
  std::unique_ptr<PagesReader> reader_;  // never null
  QString stepName_;
  std::optional<Pressed> pressed_;
  std::optional<QString> owed_;  // the Result with what was edited, while steps are made again
  bool isAgreed_ = false;        // the person knows what the buttons will write
  QString typedIn_;              // the box whose text the last line is
  const char* event_ = nullptr;  // the one that is being raised
  Json answers_ = Json::array();

  Journal* journal_ = nullptr;
  int depth_ = 0;              // how many composers stand around this one
  QString keptIn_;             // the box that was typed in last
  QString keptText_;           // and its text
  bool isPlaying_ = false;     // what is done is in the journal already
  bool isOpening_ = false;     // what is done is nobody's change
  bool isAskedAgain_ = false;  // the same for the gesture that is about to ask
  Json played_;                // the event that comes, and what is written in it
  QString playedText_;         // of the box that is typed in
};

}  // namespace zolt20::composer
