// The widget's meta-object against the contract's list of members, events and keys.
#include <QMetaMethod>
#include <QMetaProperty>
#include <stdexcept>

#include "tests/qt/widget_test.h"

namespace zolt20::tests {
namespace {

QMetaType TypeOf(ValueType type) {
  switch (type) {
    case ValueType::kString:
      return QMetaType::fromType<QString>();
    case ValueType::kInteger:
      return QMetaType::fromType<int>();
    case ValueType::kBoolean:
      return QMetaType::fromType<bool>();
    case ValueType::kNone:
      break;
  }
  return {};
}

class ContractTest : public WidgetTest {
 protected:
  static constexpr const QMetaObject& kMeta = ZOLT20MapWidget::staticMetaObject;

  // The widget's own method of that name; an invalid one when there is none.
  static QMetaMethod Method(const QByteArray& name) {
    for (int i = kMeta.methodOffset(); i < kMeta.methodCount(); ++i) {
      if (kMeta.method(i).name() == name) return kMeta.method(i);
    }
    return {};
  }
  static QMetaProperty Property(std::string_view name) {
    return kMeta.property(kMeta.indexOfProperty(Meta(name).constData()));
  }
  // The kind and number of the error that comes out, "" when none does.
  static std::string ErrorOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const RuntimeError& error) {
      return std::string(error.kind_word()) + " " + std::to_string(error.number());
    }
    return "";
  }
};

TEST_F(ContractTest, WhatHasAGetIsAPropertyOfItsType) {
  for (const Member& member : Members()) {
    const QMetaProperty property = Property(member.name);
    ASSERT_EQ(property.isValid(), member.get != nullptr) << member.name;
    if (!property.isValid()) continue;
    EXPECT_EQ(property.metaType(), TypeOf(member.type)) << member.name;
    EXPECT_EQ(property.isWritable(), member.let != nullptr) << member.name;
    EXPECT_TRUE(property.isReadable()) << member.name;
  }
}

TEST_F(ContractTest, WhatHasALetIsASlotOfItsType) {
  for (const Member& member : Members()) {
    const QMetaMethod slot = Method(SetterOf(member.name));
    ASSERT_EQ(slot.isValid(), member.let != nullptr) << member.name;
    if (!slot.isValid()) continue;
    EXPECT_EQ(slot.methodType(), QMetaMethod::Slot) << member.name;
    EXPECT_EQ(slot.access(), QMetaMethod::Public) << member.name;
    ASSERT_EQ(slot.parameterCount(), 1) << member.name;
    EXPECT_EQ(slot.parameterMetaType(0), TypeOf(member.type)) << member.name;
  }
}

TEST_F(ContractTest, WhatReportsHasASignalAndNothingElse) {
  for (const Member& member : Members()) {
    const QMetaMethod signal = Method(Meta(member.name) + "Changed");
    ASSERT_EQ(signal.isValid(), member.reports) << member.name;
    if (!signal.isValid()) continue;
    EXPECT_EQ(signal.methodType(), QMetaMethod::Signal) << member.name;
    EXPECT_EQ(signal.parameterCount(), 0) << member.name;
  }
}

TEST_F(ContractTest, MethodsCanBeInvoked) {
  for (const Member& member : Members()) {
    if (!member.IsMethod()) continue;
    const QMetaMethod method = Method(Meta(member.name));
    ASSERT_TRUE(method.isValid()) << member.name;
    EXPECT_EQ(method.methodType(), QMetaMethod::Method) << member.name;
    EXPECT_EQ(method.returnMetaType(), QMetaType::fromType<QVariant>()) << member.name;
    ASSERT_EQ(method.parameterCount(), member.type == ValueType::kNone ? 0 : 1) << member.name;
    if (method.parameterCount() == 0) continue;
    EXPECT_EQ(method.parameterMetaType(0), TypeOf(member.type)) << member.name;
    EXPECT_EQ(method.parameterNames()[0], Meta(member.argument)) << member.name;
  }
}

TEST_F(ContractTest, EventsAreSignals) {
  for (const Event& event : Events()) {
    const QMetaMethod signal = Method(Meta(event.name));
    ASSERT_TRUE(signal.isValid()) << event.name;
    EXPECT_EQ(signal.methodType(), QMetaMethod::Signal) << event.name;
    EXPECT_EQ(signal.parameterCount(), 0) << event.name;
  }
}

TEST_F(ContractTest, EachWriteReportsItsOwnPropertyOnceOrNothing) {
  Catalogue();
  for (const Member& member : Members()) {
    if (member.let == nullptr) continue;
    const QByteArray setter = SetterOf(member.name);
    QVariant value = QStringLiteral("TABLE__10");
    if (member.type == ValueType::kInteger) value = 1;
    if (member.type == ValueType::kBoolean) value = true;
    ASSERT_TRUE(QMetaObject::invokeMethod(&widget(), setter.constData(),
                                          QGenericArgument(value.typeName(), value.constData())));
    const std::string report = "changed " + std::string(member.name);
    EXPECT_EQ(Log(), member.reports ? Texts{report} : Texts{}) << member.name;
  }
}

TEST_F(ContractTest, AReportComesAfterTheEffects) {
  int page = -1;
  int drawn = -1;
  QObject::connect(&widget(), &ZOLT20MapWidget::prpTabChanged, &widget(), [&] {
    page = form().tabVrn.Tab().value();
    drawn = Be<QTabBar>("tabVrn").currentIndex();
  });
  widget().setPrpTab(6);
  EXPECT_EQ(page, 6);
  EXPECT_EQ(drawn, 6);
}

TEST_F(ContractTest, PropertiesReadWhatWasWritten) {
  widget().setPrpintTabcount(-32768);
  EXPECT_EQ(widget().property("prpintTabcount"), QVariant(-32768));
  EXPECT_EQ(widget().property("Syntax_Highlight"), QVariant(false));
  EXPECT_TRUE(widget().setProperty("Syntax_Highlight", true));
  EXPECT_TRUE(widget().Syntax_Highlight());
  EXPECT_EQ(widget().property("prpStrSQLPart"), QVariant(QStringLiteral("0")));
  widget().setPrpintTabcount(0);
  EXPECT_TRUE(widget().setProperty("prpStroutput", QStringLiteral("a~b")));
  EXPECT_EQ(widget().property("prpStroutput"), QVariant(QStringLiteral("a\r\nb")));
}

TEST_F(ContractTest, MethodsGiveNothing) {
  QVariant result = 1;
  ASSERT_TRUE(QMetaObject::invokeMethod(&widget(), "BuildGroupBy", Q_RETURN_ARG(QVariant, result)));
  EXPECT_FALSE(result.isValid());
  Type("TxtOutput", "a");
  result = 1;
  ASSERT_TRUE(QMetaObject::invokeMethod(&widget(), "ClearAll", Q_RETURN_ARG(QVariant, result),
                                        Q_ARG(int, 7)));
  EXPECT_FALSE(result.isValid());
  EXPECT_EQ(Narrow(form().TxtOutput.Text()), "");
}

TEST_F(ContractTest, ANewWidgetWritesTheDefaultsUnderTheKeysOfWriting) {
  QVariantMap expected;
  for (const BagEntry& entry : BagEntries()) {
    expected[Qs(entry.writeKey)] =
        entry.type == ValueType::kInteger ? QVariant(0) : QVariant(QStringLiteral("0"));
  }
  EXPECT_EQ(expected.size(), 14);
  EXPECT_EQ(widget().UserControl_WriteProperties(), expected);
}

// The two lists of the catalogue are read under other keys than they are written.
TEST_F(ContractTest, ABagIsReadUnderTheKeysOfReading) {
  QVariantMap bag;
  QVariantMap expected;
  int number = 0;
  for (const BagEntry& entry : BagEntries()) {
    const QVariant value = entry.type == ValueType::kInteger
                               ? QVariant(5)
                               : QVariant(QStringLiteral("text %1").arg(++number));
    bag[Qs(entry.readKey)] = value;
    expected[Qs(entry.writeKey)] = value;
  }
  widget().UserControl_ReadProperties(bag);
  EXPECT_EQ(widget().UserControl_WriteProperties(), expected);
  EXPECT_EQ(Log(), Texts{});
  EXPECT_EQ(form().tabVrn.Tab().value(), 0);

  MakeNew();
  widget().UserControl_ReadProperties(expected);
  expected[QStringLiteral("PrpStrTables")] = QStringLiteral("0");
  expected[QStringLiteral("PrpStrFields")] = QStringLiteral("0");
  EXPECT_EQ(widget().UserControl_WriteProperties(), expected);
}

TEST_F(ContractTest, ABagWithANumberBeyond16BitsFails) {
  const QVariantMap bag{{QStringLiteral("prpTab"), 40000}};
  EXPECT_EQ(ErrorOf([&] { widget().UserControl_ReadProperties(bag); }), "overflow 6");
}

TEST_F(ContractTest, SettersThrowRunTimeErrors) {
  EXPECT_EQ(ErrorOf([&] { widget().setPrpintTabcount(32768); }), "overflow 6");
  EXPECT_EQ(ErrorOf([&] { widget().setPrpTab(-32769); }), "overflow 6");
  EXPECT_EQ(ErrorOf([&] { widget().setPrpTab(7); }), "value 380");
  EXPECT_EQ(ErrorOf([&] { widget().ClearAll(32768); }), "overflow 6");
  EXPECT_EQ(ErrorOf([&] { widget().setPrpSelectGroupbyPart(QString()); }), "");
  EXPECT_EQ(ErrorOf([&] { widget().setPrpSelectGroupbyPart(QStringLiteral("a,,b")); }),
            "index 381");
  EXPECT_EQ(Log(), (Texts{"changed prpSelectGroupbyPart"}));
}

// A table with a field record that has no separators: the click on it fails when its rows are in.
constexpr const char* kBrokenField = "TABLE__1.A";

TEST_F(ContractTest, ASetterThatFailsShowsWhatItDid) {
  widget().setPrpStrTables(QStringLiteral("TABLE__10"));
  widget().setPrpStrFields(Qs(kBrokenField));
  Log();
  EXPECT_EQ(ErrorOf([&] { widget().setPrpSelectFromPart(QStringLiteral("TABLE__1")); }),
            "subscript 9");
  EXPECT_TRUE(form().lsttables.Selected(0));
  EXPECT_EQ(Narrow(form().lstFields.List(0)), "TABLE__1.*");
  EXPECT_EQ(Difference(), "");
  EXPECT_EQ(Log(), Texts{});
}

TEST_F(ContractTest, AGestureThatFailsTellsTheHostAndThrowsNothing) {
  widget().setPrpStrTables(QStringLiteral("TABLE__10"));
  widget().setPrpStrFields(Qs(kBrokenField));
  Log();
  EXPECT_NO_THROW(Click("lsttables", 0));
  EXPECT_EQ(Log(), (Texts{"failed subscript 9"}));
  EXPECT_TRUE(form().lsttables.Selected(0));
  EXPECT_EQ(Narrow(form().lstFields.List(0)), "TABLE__1.*");
  EXPECT_EQ(Difference(), "");
}

// Clear leaves the rows of an On...Case loaded and counts them anew.
TEST_F(ContractTest, AWidgetGoesOnAfterAFailure) {
  Tab(6);
  Click("optCase");
  Click("cmdNext");
  Click("cmdClear");
  Click("optCase");
  Click("cmdNext");
  EXPECT_EQ(Log(), (Texts{"failed loaded 360"}));
  EXPECT_EQ(Difference(), "");
  Click("cmdNext");
  EXPECT_EQ(Log(), Texts{});
  EXPECT_EQ(Focused(), "TxtExpr(2)");
  EXPECT_EQ(Difference(), "");
}

TEST_F(ContractTest, AFailureHasTheTextOfTheError) {
  QString text;
  QObject::connect(&widget(), &ZOLT20MapWidget::Failed, &widget(),
                   [&](const QString&, int, const QString& what) { text = what; });
  widget().setPrpStrTables(QStringLiteral("TABLE__10"));
  widget().setPrpStrFields(Qs(kBrokenField));
  Click("lsttables", 0);
  EXPECT_EQ(Std(text), RuntimeError(ErrorKind::kSubscript).what());
}

TEST_F(ContractTest, WhatASlotOfTheHostThrowsIsAFailureOfTheHost) {
  Answer("eventCancel", [] { throw std::runtime_error("no answer"); });
  QString text;
  QObject::connect(&widget(), &ZOLT20MapWidget::Failed, &widget(),
                   [&](const QString&, int, const QString& what) { text = what; });
  EXPECT_NO_THROW(Click("cmdCancel"));
  EXPECT_EQ(Log(), (Texts{"eventCancel", "failed host 0"}));
  EXPECT_EQ(text, QStringLiteral("no answer"));
  Answer("eventCancel", {});
  Click("cmdCancel");
  EXPECT_EQ(Log(), (Texts{"eventCancel"}));
}

// A setter that fails within an event, and is not caught there, ends the gesture.
TEST_F(ContractTest, ASetterThatFailsWithinAnEventFailsTheGesture) {
  Answer("eventCancel", [this] { widget().setPrpTab(7); });
  EXPECT_NO_THROW(Click("cmdCancel"));
  EXPECT_EQ(Log(), (Texts{"eventCancel", "failed value 380"}));
}

}  // namespace
}  // namespace zolt20::tests
