// ZOLT20MapControl as a Qt widget.
//
// A program embeds it like any other widget, writes the catalogue and the stored parts through the
// setters, and answers the signals. The members bear the names of the control's contract. A signal
// of a request comes from inside the click: a slot that is connected directly answers it by calling
// a setter before it returns, and may show a modal dialog to find the answer.
//
// Setters and methods throw zolt20::RuntimeError (surface/error.h) where the contract raises a
// run-time error; call them from code that catches it, and not by a queued connection. A failure
// while the person uses the widget is reported by the signal Failed, and nothing is thrown.
#pragma once

#include <QHash>
#include <QVariantMap>
#include <QWidget>
#include <memory>

namespace zolt20 {
class ControlSnapshot;
class Surface;
struct UserGesture;
}  // namespace zolt20

/// What a person did, for hosts that keep a record: a gesture of the form, in the words of the
/// JSON lines that zolt20-host plays.
struct ZOLT20Gesture {
  QString verb;         ///< "click", "dblclick", "pick", "type", "key", "focus", "tab" or "scroll"
  QString control;      ///< the control's name, "" for "tab"
  int number = -1;      ///< a row, the code of a key, a page or a scroll value; -1 for none
  QString text;         ///< of "type"
  bool goesOn = false;  ///< typing merged with the step of the history before
  int from = -1;        ///< of "key": the marked characters, from this place on and before the next
  int to = -1;
};

class ZOLT20MapWidget : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString prpStroutput READ prpStroutput WRITE setPrpStroutput STORED false)
  Q_PROPERTY(QString prpStrSQLPart READ prpStrSQLPart STORED false)
  Q_PROPERTY(QString prpstrSelectedFields READ prpstrSelectedFields STORED false)
  Q_PROPERTY(int prpintTabcount READ prpintTabcount WRITE setPrpintTabcount)
  Q_PROPERTY(bool Syntax_Highlight READ Syntax_Highlight WRITE setSyntax_Highlight)
  Q_PROPERTY(bool undoEnabled READ isUndoEnabled WRITE setUndoEnabled)
  Q_PROPERTY(bool canUndo READ canUndo NOTIFY canUndoChanged STORED false)
  Q_PROPERTY(bool canRedo READ canRedo NOTIFY canRedoChanged STORED false)

 public:
  explicit ZOLT20MapWidget(QWidget* parent = nullptr);
  ~ZOLT20MapWidget() override;

  /// The Result. Not idempotent: at a depth above 0 each read indents it by one more tab.
  QString prpStroutput() const;
  /// The code of the page that last raised a request: "D", "E", "O", "F" or "C"; "0" at first.
  QString prpStrSQLPart() const;
  /// The field records of the first statement of the Result, separated by ",".
  QString prpstrSelectedFields() const;
  int prpintTabcount() const;
  bool Syntax_Highlight() const;

  /// Builds the group-by clause from the form. Always returns an invalid QVariant, since there is
  /// no value.
  Q_INVOKABLE QVariant BuildGroupBy();
  /// Clears one page, 0 to 6, and the Result box; any other number clears the box alone. Always
  /// returns an invalid QVariant, too.
  Q_INVOKABLE QVariant ClearAll(int i_intTabNo);

  // The property bag: fourteen values. A new widget starts with the defaults.

  void UserControl_InitProperties();
  /// A key that is missing in the bag takes its default.
  void UserControl_ReadProperties(const QVariantMap& bag);
  QVariantMap UserControl_WriteProperties() const;

  // Undo and redo of the person's gestures, by snapshots of the whole control. A setter or method
  // that is called from outside of a signal of the widget clears the history.

  bool isUndoEnabled() const;
  bool canUndo() const;
  bool canRedo() const;

  /// A value of the host's that is saved with the state of the control: each step of the history
  /// holds the value from before it, and undo and redo restore it. Invalid at first.
  QVariant hostData() const;
  void setHostData(const QVariant& value);
  /// The same as a step of its own, which undo takes back. False within a signal of the widget.
  bool stepHostData(const QVariant& value);

  /// Sets display names of tables, keyed by code. The list of tables shows them beside the codes,
  /// and its filter finds them too; the control knows nothing of them.
  void setTableNames(const QHash<QString, QString>& names);

  /// The whole state as a snapshot, and back; restore clears the history. Neither may be called
  /// within a signal of the widget.
  zolt20::ControlSnapshot save() const;
  void restore(zolt20::ControlSnapshot snapshot);

  /// The form as it is, to read.
  const zolt20::Surface& form() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 public slots:
  // The properties that can be written. An Integer is one of 16 bits: any other int raises
  // `overflow`.
  void setPrpStrTables(const QString& tables);
  void setPrpStrFields(const QString& fields);
  void setPrpSelectPart(const QString& selectList);
  void setPrpTab(int page);
  void setPrpParentorChild(const QString& value);
  void setPrpStroutput(const QString& encoded);
  void setPrpSelectFromPart(const QString& tables);
  void setPrpSelectWherePart(const QString& encoded);
  void setPrpSelectGroupbyPart(const QString& fields);
  void setPrpSelectOrderbyPart(const QString& fields);
  void setPrpSelectAsSetPart(const QString& rows);
  void setPrpSelectDoPart(const QString& encoded);
  void setPrpSelectEOSPart(const QString& encoded);
  void setPrpSelectEmptyPart(const QString& encoded);
  void setPrpSelectErrorPart(const QString& encoded);
  void setPrpintTabcount(int depth);
  void setSyntax_Highlight(bool highlight);

  /// Switching undo off clears the history.
  void setUndoEnabled(bool enabled);
  /// Do nothing where canUndo() or canRedo() is false, and within a signal of the widget.
  void undo();
  void redo();

 signals:
  void eventCancel();
  void eventDone();
  void eventSubQuery();
  void eventCondition();
  void eventFunction();

  // A property was written, and its effects are done.
  void PrpStrTablesChanged();
  void PrpStrFieldsChanged();
  void prpSelectPartChanged();
  void prpTabChanged();
  void prpParentorChildChanged();
  void prpSelectFromPartChanged();
  void prpSelectWherePartChanged();
  void prpSelectGroupbyPartChanged();
  void prpSelectOrderbyPartChanged();
  void prpSelectAsSetPartChanged();
  void prpSelectDoPartChanged();
  void prpSelectEOSPartChanged();
  void prpSelectEmptyPartChanged();
  void prpSelectErrorPartChanged();

  /// A gesture of the person failed, half done: the kind of the run-time error in one word, its
  /// number, its text. A failure of the host's own slots has the kind "host" and the number 0.
  void Failed(const QString& kind, int number, const QString& text);

  /// The person made this gesture, and all its effects are done, answers to events included.
  void gestureMade(const ZOLT20Gesture& gesture);

  void canUndoChanged(bool can);
  void canRedoChanged(bool can);
  void undone();
  void redone();

 protected:
  /// Shows a message of the control as a modal box and returns when it was answered. A host that
  /// wants its own kind of message box overrides it.
  virtual void showMessage(const QString& text, const QString& title);

  /// Called before a button of the form is pressed, by the person or by makeGesture, with the
  /// button's name. Returning false cancels the press. May show a dialog, such as one that tells
  /// what the press would do.
  virtual bool mayPress(const QString& button);

  /// Makes a gesture on the form as the person does, with its events and its step of the history,
  /// for a host that replays a recorded session. Not taken within a signal of the widget.
  void makeGesture(const zolt20::UserGesture& gesture);
  /// Within an event, what the person did that raised it.
  ZOLT20Gesture gestureInProgress() const;

  bool focusNextPrevChild(bool next) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  class Private;
  std::unique_ptr<Private> d_;
};
