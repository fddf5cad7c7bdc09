// The item model of a list: it signals every change as item models have to, has no copy of the
// control's rows, and shows those that the filter leaves.
#include "faces/qt/rows_model.h"

#include <QAbstractItemModelTester>
#include <QAbstractItemView>
#include <QIdentityProxyModel>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <map>
#include <memory>
#include <random>
#include <set>

#include "faces/qt/map_widget.h"
#include "faces/qt/qt_text.h"
#include "faces/qt/rows_view.h"
#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using qt::RowsModel;
using qt::RowsView;

// Passes the notices of a surface on to a model for each of its lists, and counts them by kind.
class Models final : public SurfaceObserver {
 public:
  explicit Models(const Surface& form) {
    for (const Control* control : form.Controls()) {
      if (control->kind() != Kind::ListBox && control->kind() != Kind::ComboBox) continue;
      auto& model = models_[control];
      model = std::make_unique<RowsModel>(static_cast<const RowsControl&>(*control));
      // Ends the program at the first thing that no model may do.
      new QAbstractItemModelTester(
          model.get(), QAbstractItemModelTester::FailureReportingMode::Fatal, model.get());
    }
  }

  RowsModel& Of(const Control& control) { return *models_.at(&control); }
  const std::map<const Control*, std::unique_ptr<RowsModel>>& All() const { return models_; }

  std::map<RowChange::What, int> changes;

  void RowsAboutToChange(const Control& list, const RowChange& change) noexcept override {
    Of(list).RowsAboutToChange(change);
  }
  void RowsChanged(const Control& list, const RowChange& change) noexcept override {
    ++changes[change.what];
    Of(list).RowsChanged(change);
  }
  void MarksChanged(const Control& list, int first, int count) noexcept override {
    Of(list).MarksChanged(first, count);
  }
  void StateReplaced() noexcept override {
    for (const auto& [control, model] : models_)
      model->Replace();
  }
  void ControlChanged(const Control& /*control*/, Property /*property*/) noexcept override {}
  void FocusChanged(const Control* /*control*/) noexcept override {}
  void TabOrderChanged(int /*first*/, int /*last*/) noexcept override {}
  void ElementLoaded(const Control& /*element*/) noexcept override {}
  void ElementUnloading(const Control& /*element*/) noexcept override {}

 private:
  std::map<const Control*, std::unique_ptr<RowsModel>> models_;
};

// Two tables with an index each and forty fields, FIELDS_A.F00 to FIELDS_B.F39.
class RowsModelTest : public ControlTest {
 protected:
  static constexpr int kFields = 40;

  void SetUp() override {
    Texts records;
    for (const char* table : {"FIELDS_A", "FIELDS_B"}) {
      for (int field = 0; field < kFields; ++field)
        records.push_back(Field("N" + NameOf(table, field)));
    }
    Catalogue("FIELDS_A1,FIELDS_B1", List(records));
    models_ = std::make_unique<Models>(host().Form());
    host().AddObserver(*models_);
  }
  void TearDown() override {
    host().RemoveObserver(*models_);
    ControlTest::TearDown();
  }

  static std::string NameOf(const std::string& table, int field) {
    return table + (field < 10 ? ".F0" : ".F") + std::to_string(field);
  }
  // A stored select list in which the tables take turns, so that the rows of one stand scattered.
  static String TakingTurns() {
    Texts entries;
    for (int field = 0; field < kFields; ++field) {
      entries.push_back(NameOf("FIELDS_A", field));
      entries.push_back(NameOf("FIELDS_B", field));
    }
    return Wide(List(entries));
  }

  RowsModel& Model(std::string_view list) { return models_->Of(On(list)); }
  void Filter(std::string_view list, std::string_view text) {
    Model(list).SetFilter(qt::ToQt(Wide(text)));
  }

  static Texts Drawn(const RowsModel& model) {
    Texts rows;
    for (int row = 0; row < model.rowCount(); ++row)
      rows.push_back(Narrow(qt::View(model.index(row).data().toString())));
    return rows;
  }

  // The first difference between a model and its control, or "".
  static std::string Difference(const RowsModel& model) {
    const RowsControl& rows = model.rows();
    const String filter = LowerCase(qt::View(model.Filter()));
    int drawn = 0;
    for (int row = 0; row < rows.ListCount(); ++row) {
      const std::string name = std::string(rows.name()) + " row " + std::to_string(row);
      if (!Holds(LowerCase(rows.List(row)), filter)) {
        if (model.ModelRow(row) != -1) return name + " is hidden and has a place";
        continue;
      }
      const QModelIndex index = model.index(drawn);
      if (qt::View(index.data().toString()) != rows.List(row)) return name + " has another text";
      if (model.ModelRow(row) != drawn) return name + " has another place";
      if (model.ControlRow(drawn) != row) return name + " is taken for another";
      const auto* list = dynamic_cast<const ListBox*>(&rows);
      const bool hasCheckBox = list != nullptr && list->HasCheckBoxes();
      const QVariant check = index.data(Qt::CheckStateRole);
      if (check.isValid() != hasCheckBox) return name + " has a check box or none";
      if (hasCheckBox && (check.toInt() == Qt::Checked) != list->Selected(row))
        return name + " has another mark";
      ++drawn;
    }
    return model.rowCount() == drawn ? "" : std::string(rows.name()) + " has more rows";
  }
  std::string AnyDifference() {
    for (const auto& [control, model] : models_->All()) {
      if (const std::string difference = Difference(*model); !difference.empty()) return difference;
    }
    return "";
  }

  std::unique_ptr<Models> models_;
};

TEST_F(RowsModelTest, RowsComeAtTheirPlaceInASortedList) {
  Mark("lsttables", 0);
  QSignalSpy inserted(&Model("lstSelectedFields"), &QAbstractItemModel::rowsInserted);
  for (const int row : {3, 1, 2}) {  // F02, F00, F01 behind the row of the whole table
    Mark("lstFields", row);
    Click("cmdMoveOne");
  }
  EXPECT_EQ(Drawn(Model("lstSelectedFields")),
            (Texts{"FIELDS_A.F00", "FIELDS_A.F01", "FIELDS_A.F02"}));
  ASSERT_EQ(inserted.count(), 3);
  EXPECT_EQ(inserted[2][1].toInt(), 1);
  EXPECT_EQ(inserted[2][2].toInt(), 1);
}

TEST_F(RowsModelTest, ARunOfRowsGoesInOneNotice) {
  Mark("lsttables", 0);
  Mark("lsttables", 1);
  QSignalSpy removed(&Model("lstFields"), &QAbstractItemModel::rowsRemoved);
  Mark("lsttables", 0);
  ASSERT_EQ(removed.count(), 1);
  EXPECT_EQ(removed[0][1].toInt(), 0);
  EXPECT_EQ(removed[0][2].toInt(), kFields);
  EXPECT_EQ(AnyDifference(), "");
}

TEST_F(RowsModelTest, ScatteredRowsGoInOneReset) {
  host().prpSelectPart(TakingTurns());
  Log();
  QSignalSpy reset(&Model("lstorderbyasc"), &QAbstractItemModel::modelReset);
  Mark("lsttables", 0);
  EXPECT_EQ(reset.count(), 1);
  EXPECT_GT(Model("lstorderbyasc").rowCount(), 0);
  EXPECT_EQ(AnyDifference(), "");
}

TEST_F(RowsModelTest, AMarkIsToldOfItsOwnRowAlone) {
  Mark("lsttables", 0);
  Tab(1);
  QSignalSpy changed(&Model("lstorderbyasc"), &QAbstractItemModel::dataChanged);
  Mark("lstorderbyasc", 0);
  ASSERT_EQ(changed.count(), 1);
  EXPECT_EQ(changed[0][0].toModelIndex().row(), 0);
  EXPECT_EQ(changed[0][1].toModelIndex().row(), 0);
  EXPECT_EQ(AnyDifference(), "");
}

TEST_F(RowsModelTest, ASnapshotBringsAllRowsBack) {
  Mark("lsttables", 0);
  const ControlSnapshot kept = host().Save();
  const Texts before = Drawn(Model("lstFields"));
  Mark("lsttables", 0);
  EXPECT_EQ(Drawn(Model("lstFields")), Texts{});
  host().Restore(kept);
  EXPECT_EQ(Drawn(Model("lstFields")), before);
  EXPECT_EQ(AnyDifference(), "");
}

TEST_F(RowsModelTest, TheFilterLeavesRowsInAnyLetterCase) {
  Mark("lsttables", 0);
  Filter("lstFields", "a.f1");
  EXPECT_EQ(Drawn(Model("lstFields")).size(), 10U);
  EXPECT_EQ(Drawn(Model("lstFields"))[0], "FIELDS_A.F10");
  Filter("lstFields", "F39");
  EXPECT_EQ(Drawn(Model("lstFields")), Texts{"FIELDS_A.F39"});
  Filter("lstFields", "nothing has this");
  EXPECT_EQ(Drawn(Model("lstFields")), Texts{});
  Filter("lstFields", "");
  EXPECT_EQ(Drawn(Model("lstFields")), Rows("lstFields"));
}

TEST_F(RowsModelTest, TheFilterTakesItsTextAsItStands) {
  Mark("lsttables", 0);
  Filter("lstFields", ".*");
  EXPECT_EQ(Drawn(Model("lstFields")), Texts{"FIELDS_A.*"});
  Filter("lstFields", "^FIELDS");
  EXPECT_EQ(Drawn(Model("lstFields")), Texts{});
}

TEST_F(RowsModelTest, AFilteredRowIsFoundBothWays) {
  Mark("lsttables", 0);
  Filter("lstFields", "F1");
  const RowsModel& model = Model("lstFields");
  EXPECT_EQ(model.ControlRow(0), 11);  // behind the row of the whole table
  EXPECT_EQ(model.ModelRow(11), 0);
  EXPECT_EQ(model.ModelRow(20), 9);
  EXPECT_EQ(model.ModelRow(0), -1);
  EXPECT_EQ(model.ModelRow(21), -1);
}

TEST_F(RowsModelTest, RowsThatComeAndGoPassTheFilter) {
  Filter("lstFields", "f0");
  Mark("lsttables", 1);
  EXPECT_EQ(Drawn(Model("lstFields")).size(), 10U);
  Mark("lsttables", 0);
  EXPECT_EQ(Drawn(Model("lstFields")).size(), 20U);
  Mark("lsttables", 1);
  EXPECT_EQ(Drawn(Model("lstFields"))[9], "FIELDS_A.F09");
  EXPECT_EQ(AnyDifference(), "");
}

TEST_F(RowsModelTest, ARowThatIsNotThereHasNothing) {
  const RowsModel& model = Model("lsttables");
  EXPECT_FALSE(model.data({}, Qt::DisplayRole).isValid());
  EXPECT_FALSE(model.index(2).isValid());
  EXPECT_EQ(model.rowCount(model.index(0)), 0);
  EXPECT_EQ(model.flags({}), Qt::NoItemFlags);
}

TEST_F(RowsModelTest, OnlyRowsOfACheckBoxListCanBeChecked) {
  Mark("lsttables", 0);
  const auto canBeChecked = [&](std::string_view list) {
    return (Model(list).flags(Model(list).index(0)) & Qt::ItemIsUserCheckable) != 0;
  };
  EXPECT_TRUE(canBeChecked("lstorderbyasc"));
  EXPECT_TRUE(canBeChecked("lstorderbydesc"));
  EXPECT_FALSE(canBeChecked("lsttables"));
  EXPECT_FALSE(canBeChecked("lstFields"));
  EXPECT_FALSE(canBeChecked("cboWhereFields"));
}

class RandomRowsTest : public RowsModelTest, public ::testing::WithParamInterface<unsigned> {
 protected:
  int Below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }

  // What a step does may be refused or fail; the models follow either way.
  void ClickAny(const char* list) {
    const int rows = static_cast<int>(Rows(list).size());
    if (rows > 0) host().UserClick(On(list), Below(rows));
  }

  void Step() {
    switch (Below(14)) {
      case 0:
      case 1:
        host().UserTab(0);
        return ClickAny("lsttables");
      case 2:
        host().UserTab(0);
        ClickAny("lstFields");
        host().UserClick(On("cmdMoveOne"));
        return;
      case 3:
        host().UserTab(0);
        host().UserClick(On("cmdMoveAll"));
        return;
      case 4:
        host().UserTab(0);
        for (int marks = 0; marks < 5; ++marks)
          ClickAny("lstSelectedFields");
        host().UserClick(On("cmdRemoveOne"));
        return;
      case 5:
        host().UserTab(0);
        host().UserClick(On("cmdRemoveAll"));
        return;
      case 6:
      case 7:
        return host().prpSelectPart(TakingTurns());
      case 8:
        host().UserTab(1);
        ClickAny("lstorderbyasc");
        return ClickAny("lstorderbydesc");
      case 9:
        host().UserTab(1);
        if (!Rows("cboWhereFields").empty()) host().UserPick(On("cboWhereFields"), 0);
        return;
      case 10:
        host().ClearAll(Below(2));
        return;
      case 11:
        kept_ = host().Save();
        return;
      case 12:
        return host().Restore(kept_);
      default: {
        const char* const filters[] = {"", "f1", "FIELDS_A", "b.f", "index"};
        auto model = models_->All().begin();
        std::advance(model, Below(static_cast<int>(models_->All().size())));
        model->second->SetFilter(QString::fromLatin1(filters[Below(5)]));
      }
    }
  }

  std::mt19937 random_{GetParam()};
  ControlSnapshot kept_;
};

TEST_P(RandomRowsTest, TheModelsShowWhatTheControlHas) {
  kept_ = host().Save();
  int failed = 0;
  for (int step = 0; step < 300; ++step) {
    try {
      Step();
    } catch (const RuntimeError&) {
      ++failed;
    }
    ASSERT_EQ(AnyDifference(), "") << "after step " << step;
  }
  EXPECT_GT(models_->changes[RowChange::What::kInserted], 0);
  EXPECT_GT(models_->changes[RowChange::What::kRemoved], 0);
  EXPECT_GT(models_->changes[RowChange::What::kReplaced], 0);
  EXPECT_LT(failed, 100) << "too many of the steps do nothing";
  Log();
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomRowsTest, ::testing::Values(1U, 2U, 3U, 4U));

// Counts what a view asks for.
class AskedModel final : public QIdentityProxyModel {
 public:
  QVariant data(const QModelIndex& index, int role) const override {
    ++asked;
    rows.insert(index.row());
    return QIdentityProxyModel::data(index, role);
  }

  mutable int asked = 0;
  mutable std::set<int> rows;
};

class LongListTest : public ControlTest {
 protected:
  // What the drawing of the first screen asks for, with that many tables.
  void Draw(int tables, AskedModel& asked) {
    MakeNew();
    Texts entries;
    for (int table = 0; table < tables; ++table)
      entries.push_back("T" + std::to_string(1000000 + table) + "0");
    Catalogue(List(entries), "");
    ASSERT_EQ(Rows("lsttables").size(), static_cast<std::size_t>(tables));
    RowsView view(dynamic_cast<const ListBox&>(On("lsttables")));
    asked.setSourceModel(view.model());
    view.setModel(&asked);
    view.resize(200, 300);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    view.grab();
  }
};

TEST(HiddenListTest, RowsThatCameWhileTheListWasHiddenCanBeScrolledTo) {
  ZOLT20MapWidget widget;
  QString tables;
  for (int table = 10; table < 60; ++table)
    tables += QStringLiteral("TABLE_%1").arg(table) + QStringLiteral("0,");
  widget.resize(900, 650);
  widget.show();
  widget.hide();
  widget.setPrpStrTables(tables);
  QTest::qWait(1);  // a layout that is put off would come now
  widget.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
  widget.grab();
  const auto& list = *widget.findChild<QAbstractItemView*>(QStringLiteral("lsttables"));
  const int inSight =
      list.viewport()->height() / list.visualRect(list.model()->index(0, 0)).height();
  EXPECT_EQ(list.verticalScrollBar()->maximum(), 50 - inSight);
  EXPECT_TRUE(list.verticalScrollBar()->isVisible());
}

TEST_F(LongListTest, TheFirstScreenAsksForNoMoreRowsOfALongerList) {
  AskedModel few;
  Draw(1000, few);
  AskedModel many;
  Draw(100000, many);
  EXPECT_GT(few.rows.size(), 5U);
  EXPECT_LT(few.rows.size(), 100U) << "rows out of sight were asked for";
  EXPECT_EQ(many.rows.size(), few.rows.size());
  EXPECT_EQ(many.asked, few.asked);
}

}  // namespace
}  // namespace zolt20::tests
