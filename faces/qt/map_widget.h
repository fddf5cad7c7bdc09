// ZOLT20MapControl as a Qt widget.
//
// A program embeds it like any other widget, writes the catalogue and the stored parts through the
// setters, and answers the signals. The members bear the names of the control's contract. A signal
// of a request comes from inside the click: a slot that is connected directly answers it by calling
// a setter before it returns, and may show a modal dialog to find the answer.
//
// Setters and methods throw zolt20::RuntimeError (surface/error.h) where the contract raises a
// run-time error; call them from code that catches it, and not by a queued connection. What fails
// while the person uses the widget comes as the signal Failed, and nothing is thrown.
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
  QString control;      ///< its name, "" for "tab"
  int number = -1;      ///< a row, the code of a key, a page or a scroll value; -1 for none
  QString text;         ///< of "type"
  bool goesOn = false;  ///< typing that belongs to the step of the history before
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

  /// The Result. At a depth above 0 each read indents it by one tab more: read it once.
  QString prpStroutput() const;
  /// The code of the page that last raised a request: "D", "E", "O", "F" or "C"; "0" at first.
  QString prpStrSQLPart() const;
  /// The field records of the first statement of the Result, separated by ",".
  QString prpstrSelectedFields() const;
  int prpintTabcount() const;
  bool Syntax_Highlight() const;

  /// Builds the group-by clause from the form. The result is always invalid.
  Q_INVOKABLE QVariant BuildGroupBy();
  /// Clears one page, 0 to 6, and the Result box; any other number clears the box alone. The result
  /// is always invalid.
  Q_INVOKABLE QVariant ClearAll(int i_intTabNo);

  // The property bag: fourteen values. A new widget starts with the defaults.

  void UserControl_InitProperties();
  /// A key that is missing has its default.
  void UserControl_ReadProperties(const QVariantMap& bag);
  QVariantMap UserControl_WriteProperties() const;

  // Undo of what the person does, over states of the whole control. A setter or method that is
  // called from outside of a signal of the widget forgets them all.

  bool isUndoEnabled() const;
  bool canUndo() const;
  bool canRedo() const;

  /// A value of the host's that goes with the state of the control: each step of the history has
  /// the one from before it, and undo and redo put it back. Invalid at first.
  QVariant hostData() const;
  void setHostData(const QVariant& value);

  /// What the tables are called beside their codes, by code. Shown in the list of tables, where the
  /// filter finds it too; the control knows nothing of it.
  void setTableNames(const QHash<QString, QString>& names);

  /// The whole state as a value, and back, which forgets the history. Not within a signal of the
  /// widget.
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

  /// Switched off, what was kept is forgotten.
  void setUndoEnabled(bool enabled);
  /// Nothing happens where canUndo() or canRedo() is false, and within a signal of the widget.
  void undo();
  void redo();

 signals:
  void eventCancel();
  void eventDone();
  void eventSubQuery();
  void eventCondition();
  void eventFunction();

  // A property was written, after its effects.
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

  /// The person did this, and all that comes of it has happened, answers to events included.
  void gestureMade(const ZOLT20Gesture& gesture);

  void canUndoChanged(bool can);
  void canRedoChanged(bool can);
  void undone();
  void redone();

 protected:
  /// Shows a message of the control and returns when it was answered. A host that wants its own
  /// kind of message box overrides it.
  virtual void showMessage(const QString& text, const QString& title);

  /// Asked before a button of the form is pressed, by the person or by makeGesture; the name is the
  /// control's. With false nothing happens. May show a dialog. A class that overrides it can tell
  /// what the press would do before it is done.
  virtual bool mayPress(const QString& button);

  /// Makes a gesture on the form as the person does, with its events and its step of the history,
  /// for a host that plays what was kept. Not taken within a signal of the widget.
  void makeGesture(const zolt20::UserGesture& gesture);
  /// Within an event, what the person did that raised it.
  ZOLT20Gesture gestureInProgress() const;

  bool focusNextPrevChild(bool next) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  class Private;
  std::unique_ptr<Private> d_;
};
