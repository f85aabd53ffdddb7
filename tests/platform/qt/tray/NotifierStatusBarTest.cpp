#include "platform/qt/tray/NotifierStatusBar.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "platform/qt/session/PrivateBus.h"
#include "platform/qt/tray/FakeTrayHost.h"
#include "platform/qt/tray/NotifierTypes.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QCoreApplication>
#include <QDBusObjectPath>
#include <QMenu>

namespace velmora {
namespace {

using Strings = std::vector<std::string>;

const QString kItemInterface = QStringLiteral("org.kde.StatusNotifierItem");
const QString kItemPath = QStringLiteral("/StatusNotifierItem");
const QString kMenuInterface = QStringLiteral("com.canonical.dbusmenu");
const QString kMenuPath = QStringLiteral("/MenuBar");

const HostProfile kSquareHost;
const HostProfile kFrontHost{.order = HostProfile::Order::front};
const HostProfile kSortingHost{.order = HostProfile::Order::id};
const HostProfile kMenuHost{.order = HostProfile::Order::front, .itemNeedsMenu = true, .showsLabel = true};

StatusItem moduleItem(const std::string& module, const std::string& label) {
    return {"Velmora." + module, label, "Velmora — " + label, false, false};
}

const StatusItem kCpu = moduleItem("cpu", "CPU");
const StatusItem kMemory = moduleItem("memory", "MEM");
const StatusItem kDisk = moduleItem("disk", "DSK");
const std::vector<StatusItem> kSix{kCpu,
                                   kMemory,
                                   kDisk,
                                   moduleItem("network", "NET"),
                                   moduleItem("sensors", "SEN"),
                                   moduleItem("battery", "BAT")};
const StatusItem kFallback{"Velmora.fallback", "Velmora", "Velmora", true, true};

ItemImage imageOf(std::uint32_t color, const std::string& label = "42%") {
    ItemImage image{{}, label};
    for (const int scale : {1, 2}) {
        const auto count = static_cast<std::size_t>(60 * scale) * static_cast<std::size_t>(22 * scale);
        image.pixels.push_back(
            {60 * scale, 22 * scale, static_cast<double>(scale), std::vector<std::uint32_t>(count, color)});
    }
    return image;
}

class NotifierStatusBarTest : public testing::Test {
protected:
    NotifierStatusBarTest() : m_sessionBus(m_bus.sessionBus()), m_host(m_sessionBus) { m_host.appear(); }

    NotifierStatusBar& start(const HostProfile& profile,
                             Session::WindowSystem windows = Session::WindowSystem::wayland) {
        m_bar.emplace(m_loop, m_sessionBus, Session{windows, Session::Desktop::other}, profile);
        return *m_bar;
    }
    /// Lets the next registration happen; false if none comes.
    bool registerNext() {
        const int before = m_host.registrations;
        m_loop.advance(NotifierStatusBar::kStepSeconds);
        return waitUntil([&] { return m_host.registrations > before && m_loop.timerCount() > 0; });
    }
    void registerItems(const std::vector<StatusItem>& items) {
        m_bar->setItems(items);
        for (std::size_t index = 0; index < items.size(); ++index) ASSERT_TRUE(registerNext());
    }
    QString onlyItem() { return m_host.registered.value(0); }

    PrivateBus m_bus;
    SessionBus m_sessionBus;
    FakeClock m_clock;
    FakeRunLoop m_loop{m_clock};
    FakeTrayHost m_host;
    std::optional<NotifierStatusBar> m_bar;
};

TEST_F(NotifierStatusBarTest, ItemsRegisterFromLeftToRight) {
    start(kSquareHost);
    registerItems(kSix);
    EXPECT_EQ(m_host.titles(), (QStringList{"Velmora 1 CPU", "Velmora 2 MEM", "Velmora 3 DSK",
                                            "Velmora 4 NET", "Velmora 5 SEN", "Velmora 6 BAT"}));
}

TEST_F(NotifierStatusBarTest, ItemsRegisterInReverseWhereTheNewestIsLeftmost) {
    start(kFrontHost);
    registerItems({kCpu, kMemory, kDisk});
    EXPECT_EQ(m_host.titles(), (QStringList{"Velmora 3 DSK", "Velmora 2 MEM", "Velmora 1 CPU"}));
}

TEST_F(NotifierStatusBarTest, NextItemWaitsForTheAnswerAndThenThreeTenthsOfASecond) {
    start(kSquareHost);
    m_host.holdAnswers();
    m_bar->setItems({kCpu, kMemory});
    m_loop.advance(0);
    ASSERT_TRUE(waitUntil([&] { return m_host.registrations == 1; }));
    m_loop.advance(4);
    m_host.roundTrip(onlyItem());
    EXPECT_EQ(m_host.registrations, 1);

    m_host.answer();
    ASSERT_TRUE(waitUntil([&] { return m_loop.timerCount() == 1; }));
    m_loop.advance(0.29);
    m_host.roundTrip(onlyItem());
    EXPECT_EQ(m_host.registrations, 1);
    m_loop.advance(0.01);
    EXPECT_TRUE(waitUntil([&] { return m_host.registrations == 2; }));
}

TEST_F(NotifierStatusBarTest, ModuleItemHasThePropertiesOfAnItemThatIsClicked) {
    start(kSquareHost);
    registerItems({kMemory});
    const QVariantMap properties = m_host.properties(onlyItem());
    EXPECT_EQ(properties.value("Category"), "SystemServices");
    EXPECT_EQ(properties.value("Status"), "Active");
    EXPECT_EQ(properties.value("Id"), "Velmora.memory");
    EXPECT_EQ(properties.value("Title"), "Velmora 2 MEM");
    EXPECT_EQ(properties.value("WindowId"), QVariant(0));
    EXPECT_EQ(properties.value("ItemIsMenu"), false);
    for (const char* name :
         {"IconName", "IconThemePath", "OverlayIconName", "AttentionIconName", "AttentionMovieName"}) {
        EXPECT_EQ(properties.value(name, "missing"), "") << name;
    }
    EXPECT_FALSE(properties.contains("Menu"));
    EXPECT_FALSE(properties.contains("XAyatanaLabel"));
    EXPECT_FALSE(properties.contains("XAyatanaLabelGuide"));

    const auto tip = qdbus_cast<NotifierToolTip>(properties.value("ToolTip"));
    EXPECT_EQ(tip.title, QString::fromUtf8("Velmora — MEM"));
    EXPECT_TRUE(tip.iconName.isEmpty());
    EXPECT_TRUE(tip.icon.isEmpty());
    EXPECT_TRUE(tip.text.isEmpty());
}

TEST_F(NotifierStatusBarTest, PropertiesHaveTheirSignatures) {
    start(kMenuHost);
    registerItems({kCpu});
    const std::pair<const char*, const char*> rows[] = {
        {"IconPixmap", "a(iiay)"},
        {"OverlayIconPixmap", "a(iiay)"},
        {"AttentionIconPixmap", "a(iiay)"},
        {"ToolTip", "(sa(iiay)ss)"},
        {"WindowId", "i"},
        {"ItemIsMenu", "b"},
        {"Menu", "o"},
        {"XAyatanaLabel", "s"},
        {"XAyatanaLabelGuide", "s"},
    };
    const QDBusMessage introspection =
        m_host.call(onlyItem(), kItemPath, QStringLiteral("org.freedesktop.DBus.Introspectable"),
                    QStringLiteral("Introspect"));
    const QString xml = introspection.arguments().value(0).toString();
    for (const auto& [name, signature] : rows) {
        EXPECT_TRUE(xml.contains(
            QStringLiteral("<property name=\"%1\" type=\"%2\" access=\"read\"").arg(name, signature)))
            << name;
    }
    for (const char* member :
         {"method name=\"Activate\"", "method name=\"SecondaryActivate\"", "method name=\"ContextMenu\"",
          "method name=\"Scroll\"", "method name=\"ProvideXdgActivationToken\"", "signal name=\"NewIcon\"",
          "signal name=\"NewTitle\"", "signal name=\"NewToolTip\"", "signal name=\"NewStatus\"",
          "signal name=\"NewMenu\"", "signal name=\"XAyatanaNewLabel\""}) {
        EXPECT_TRUE(xml.contains(QLatin1String(member))) << member;
    }
}

TEST_F(NotifierStatusBarTest, PixelsAreBigEndianAndComeInEverySize) {
    start(kSquareHost);
    m_bar->setItems({kCpu});
    m_bar->setImage("Velmora.cpu", imageOf(0x80FF0201));
    ASSERT_TRUE(registerNext());
    const auto icons = qdbus_cast<QList<IconImage>>(m_host.properties(onlyItem()).value("IconPixmap"));
    ASSERT_EQ(icons.size(), 2);
    EXPECT_EQ(icons[0].width, 60);
    EXPECT_EQ(icons[0].height, 22);
    EXPECT_EQ(icons[0].bytes.size(), 60 * 22 * 4);
    EXPECT_EQ(icons[1].width, 120);
    EXPECT_EQ(icons[1].height, 44);
    EXPECT_EQ(icons[1].bytes.size(), 120 * 44 * 4);
    EXPECT_EQ(icons[0].bytes.left(4), QByteArray("\x80\xFF\x02\x01", 4));
}

TEST_F(NotifierStatusBarTest, NewIconIsSentOnlyWhenPixelsDiffer) {
    start(kSquareHost);
    registerItems({kCpu});
    m_bar->setImage("Velmora.cpu", imageOf(0xFF000000));
    m_host.roundTrip(onlyItem());
    EXPECT_EQ(m_host.signalCounts["NewIcon"], 1);
    m_bar->setImage("Velmora.cpu", imageOf(0xFF000000));
    m_bar->setImage("Velmora.cpu", imageOf(0xFF000000, "43%"));
    m_host.roundTrip(onlyItem());
    EXPECT_EQ(m_host.signalCounts["NewIcon"], 1);
    m_bar->setImage("Velmora.cpu", imageOf(0xFFFFFFFF));
    m_host.roundTrip(onlyItem());
    EXPECT_EQ(m_host.signalCounts["NewIcon"], 2);
}

TEST_F(NotifierStatusBarTest, ImageOfAnUnknownItemIsIgnored) {
    start(kSquareHost);
    registerItems({kCpu});
    m_bar->setImage("Velmora.disk", imageOf(0xFF000000));
    m_host.roundTrip(onlyItem());
    EXPECT_EQ(m_host.signalCounts["NewIcon"], 0);
}

TEST_F(NotifierStatusBarTest, ChangedTextsAreAnnounced) {
    start(kSquareHost);
    registerItems({kCpu});
    StatusItem changed = kCpu;
    changed.toolTip = "Velmora — Processor";
    m_bar->setItems({changed});
    m_host.roundTrip(onlyItem());
    EXPECT_EQ(m_host.signalCounts["NewToolTip"], 1);
    EXPECT_EQ(m_host.signalCounts["NewTitle"], 0);
    changed.title = "PROC";
    m_bar->setItems({changed});
    m_host.roundTrip(onlyItem());
    EXPECT_EQ(m_host.signalCounts["NewTitle"], 1);
    EXPECT_EQ(m_host.registrations, 1);
}

TEST_F(NotifierStatusBarTest, ItemOwnsItsServiceName) {
    start(kSquareHost);
    registerItems({kCpu});
    const QDBusMessage reply =
        m_host.call(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                    QStringLiteral("org.freedesktop.DBus"), QStringLiteral("ListNames"));
    const QString prefix =
        QStringLiteral("org.kde.StatusNotifierItem-%1-").arg(QCoreApplication::applicationPid());
    EXPECT_EQ(reply.arguments().value(0).toStringList().filter(prefix).size(), 1);
}

TEST_F(NotifierStatusBarTest, RemovedItemVanishesFromTheBus) {
    start(kSquareHost);
    registerItems({kCpu, kMemory});
    m_bar->setItems({kMemory});
    ASSERT_TRUE(waitUntil([&] { return m_host.registered.size() == 1; }));
    EXPECT_EQ(m_host.titles(), QStringList{"Velmora 2 MEM"});
}

TEST_F(NotifierStatusBarTest, DestroyedBarTakesAllItemsAlong) {
    start(kSquareHost);
    registerItems({kCpu, kMemory});
    m_bar.reset();
    EXPECT_TRUE(waitUntil([&] { return m_host.registered.isEmpty(); }));
}

TEST_F(NotifierStatusBarTest, ItemThatLeavesWhileTheHostReadsItIsHarmless) {
    start(kMenuHost);
    for (int round = 0; round < 50; ++round) {
        m_bar->setItems({kCpu});
        m_loop.advance(NotifierStatusBar::kRestSeconds);
        ASSERT_TRUE(waitUntil([&] { return m_host.registrations == round + 1 && !onlyItem().isEmpty(); }));
        for (int call = 0; call < 10; ++call) m_host.startReading(onlyItem());
        m_host.roundTrip(QStringLiteral("org.freedesktop.DBus"));
        for (int call = 0; call < 10; ++call) m_host.startReading(onlyItem());
        m_bar->setItems({});
        ASSERT_TRUE(waitUntil([&] { return m_host.registered.isEmpty(); }));
    }
}

TEST_F(NotifierStatusBarTest, ItemBetweenOthersMakesThoseToItsRightRegisterAnewASecondLater) {
    start(kSquareHost);
    registerItems({kCpu, kDisk});
    m_loop.advance(1);
    const QString cpu = m_host.registered.value(0);
    m_bar->setItems({kCpu, kMemory, kDisk});
    ASSERT_TRUE(waitUntil([&] { return m_host.registered.size() == 1; }));
    m_loop.advance(0.99);
    m_host.roundTrip(cpu);
    EXPECT_EQ(m_host.registrations, 2);
    m_loop.advance(0.01);
    ASSERT_TRUE(waitUntil([&] { return m_host.registrations == 3 && m_loop.timerCount() > 0; }));
    ASSERT_TRUE(registerNext());
    EXPECT_EQ(m_host.registered.value(0), cpu);
    EXPECT_EQ(m_host.titles(), (QStringList{"Velmora 1 CPU", "Velmora 2 MEM", "Velmora 3 DSK"}));
}

TEST_F(NotifierStatusBarTest, ItemsThatChangeWhileOthersStillRegisterEndUpInOrder) {
    start(kSquareHost);
    m_host.holdAnswers();
    m_bar->setItems({kMemory, kDisk});
    m_loop.advance(0);
    ASSERT_TRUE(waitUntil([&] { return m_host.registrations == 1; }));
    m_bar->setItems({kCpu, kMemory});
    m_host.answer();
    ASSERT_TRUE(waitUntil([&] { return m_host.registered.isEmpty(); }));
    m_loop.advance(1);
    ASSERT_TRUE(waitUntil([&] { return m_host.registrations == 2 && m_loop.timerCount() > 0; }));
    ASSERT_TRUE(registerNext());
    EXPECT_EQ(m_host.titles(), (QStringList{"Velmora 1 CPU", "Velmora 2 MEM"}));
}

TEST_F(NotifierStatusBarTest, ItemThatLeavesBetweenTwoRegistrationsLetsTheNextOneRestToo) {
    start(kSquareHost);
    registerItems({kCpu, kDisk});
    // The step to another registration is due in 0.3 seconds, the end of the rest in 1.
    ASSERT_EQ(m_loop.timerCount(), 1U);
    const QString cpu = m_host.registered.value(0);
    m_bar->setItems({kCpu, kMemory, kDisk});
    ASSERT_TRUE(waitUntil([&] { return m_host.registered.size() == 1; }));
    m_loop.advance(0.99);
    m_host.roundTrip(cpu);
    EXPECT_EQ(m_host.registrations, 2);
    m_loop.advance(0.01);
    EXPECT_TRUE(waitUntil([&] { return m_host.registrations == 3; }));
}

TEST_F(NotifierStatusBarTest, NewHostGetsAllItemsAnewUnderTheSameAddresses) {
    start(kSquareHost);
    registerItems({kCpu, kMemory});
    const QStringList before = m_host.registered;
    m_loop.advance(1);
    m_host.registered.clear();
    m_bar->registerAll();
    ASSERT_TRUE(waitUntil([&] { return m_host.registrations == 3 && m_loop.timerCount() > 0; }));
    ASSERT_TRUE(registerNext());
    EXPECT_EQ(m_host.registered, before);
}

TEST_F(NotifierStatusBarTest, AnswerOfAnOldHostDoesNotHurryTheNewOne) {
    // The late answer for the second item ended the wait for the first one, which had registered anew.
    start(kSquareHost);
    m_bar->setItems({kCpu, kMemory});
    ASSERT_TRUE(registerNext());
    m_host.holdAnswers();
    m_loop.advance(NotifierStatusBar::kStepSeconds);
    ASSERT_TRUE(waitUntil([&] { return m_host.registrations == 2; }));
    const QString memory = m_host.registered.value(1);
    m_bar->registerAll();
    ASSERT_TRUE(waitUntil([&] { return m_host.registrations == 3; }));
    m_host.answerFirst();
    m_host.roundTrip(memory);
    EXPECT_EQ(m_loop.timerCount(), 0U);
    m_host.answer();
    ASSERT_TRUE(waitUntil([&] { return m_loop.timerCount() > 0; }));
    ASSERT_TRUE(registerNext());
    EXPECT_EQ(m_host.titles(), (QStringList{"Velmora 1 CPU", "Velmora 2 MEM"}));
}

TEST_F(NotifierStatusBarTest, SortingHostGetsNumberedIds) {
    start(kSortingHost);
    registerItems({kMemory});
    EXPECT_EQ(m_host.properties(onlyItem()).value("Id"), "Velmora.2.memory");
}

TEST_F(NotifierStatusBarTest, AnyClickActivatesTheItemAtTheHostsPoint) {
    start(kSquareHost);
    registerItems({kCpu});
    std::vector<std::pair<std::string, Anchor>> clicks;
    const Subscription subscription = m_bar->activated.subscribe(
        [&](const std::string& id, const Anchor& anchor) { clicks.emplace_back(id, anchor); });
    for (const char* method : {"Activate", "SecondaryActivate", "ContextMenu"}) {
        m_host.call(onlyItem(), kItemPath, kItemInterface, QLatin1String(method), {5, 6});
    }
    ASSERT_TRUE(waitUntil([&] { return clicks.size() == 3; }));
    for (const auto& [id, anchor] : clicks) {
        EXPECT_EQ(id, "Velmora.cpu");
        EXPECT_EQ(anchor, (Anchor{5, 6, 1, 1}));
    }
}

TEST_F(NotifierStatusBarTest, ClickThatRemovesItsOwnItemIsAnswered) {
    start(kSquareHost);
    registerItems({kCpu});
    const Subscription subscription =
        m_bar->activated.subscribe([&](const std::string&, const Anchor&) { m_bar->setItems({}); });
    const QDBusMessage reply =
        m_host.call(onlyItem(), kItemPath, kItemInterface, QStringLiteral("Activate"), {5, 6});
    EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(waitUntil([&] { return m_host.registered.isEmpty(); }));
}

TEST_F(NotifierStatusBarTest, HostWithLabelsShowsTheFigureAsText) {
    start(kMenuHost);
    m_bar->setItems({kCpu});
    m_bar->setImage("Velmora.cpu", imageOf(0xFF000000, "42%"));
    ASSERT_TRUE(registerNext());
    EXPECT_EQ(m_host.properties(onlyItem()).value("XAyatanaLabel"), "42%");
    EXPECT_EQ(m_host.properties(onlyItem()).value("XAyatanaLabelGuide"), "100%");
    m_bar->setImage("Velmora.cpu", imageOf(0xFF000000, "43%"));
    m_host.roundTrip(onlyItem());
    EXPECT_EQ(m_host.signalCounts["XAyatanaNewLabel"], 1);
    EXPECT_EQ(m_host.signalCounts["NewIcon"], 0);
}

TEST_F(NotifierStatusBarTest, AppearanceTellsWhatTheHostShows) {
    start(kSquareHost);
    EXPECT_EQ(m_bar->appearance(),
              (StatusBar::Appearance{.dark = false, .square = true, .ratios = {1, 2, 3}}));
    start(HostProfile{.keepsWidth = true});
    EXPECT_EQ(m_bar->appearance(), (StatusBar::Appearance{.dark = false, .square = false, .ratios = {1, 2}}));
    int changes = 0;
    const Subscription subscription = m_bar->appearanceChanged.subscribe([&] { ++changes; });
    m_bar->setDark(true);
    m_bar->setDark(true);
    EXPECT_TRUE(m_bar->appearance().dark);
    EXPECT_EQ(changes, 1);
}

TEST_F(NotifierStatusBarTest, WideImagesComeThreefoldOnlyForAScreenThatNeedsThem) {
    const HostProfile wide{.keepsWidth = true};
    EXPECT_EQ(NotifierStatusBar::ratiosFor(wide, 1), (std::vector<double>{1, 2}));
    EXPECT_EQ(NotifierStatusBar::ratiosFor(wide, 2), (std::vector<double>{1, 2}));
    EXPECT_EQ(NotifierStatusBar::ratiosFor(wide, 2.5), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(NotifierStatusBar::ratiosFor(kSquareHost, 1), (std::vector<double>{1, 2, 3}));
}

class FallbackMenuTest : public NotifierStatusBarTest {
protected:
    void SetUp() override {
        start(kSquareHost);
        m_bar->menuEntries = [this](const std::string&) { return m_entries; };
        registerItems({kFallback});
    }
    MenuLayoutItem layout(int parent = 0, int depth = -1, const QStringList& names = {}) {
        const QDBusMessage reply = m_host.call(onlyItem(), kMenuPath, kMenuInterface,
                                               QStringLiteral("GetLayout"), {parent, depth, names});
        m_signature = reply.signature();
        return qdbus_cast<MenuLayoutItem>(reply.arguments().value(1));
    }
    QDBusMessage event(int id, const QString& name) {
        return m_host.call(onlyItem(), kMenuPath, kMenuInterface, QStringLiteral("Event"),
                           {id, name, QVariant::fromValue(QDBusVariant(0)), 0U});
    }

    std::vector<StatusMenuEntry> m_entries{
        {"menu.settings", "Settings…", ","}, {"menu.about", "About", ""}, {}, {"menu.quit", "Quit", "q"}};
    QString m_signature;
};

TEST_F(FallbackMenuTest, FallbackSaysThatItIsAMenu) {
    const QVariantMap properties = m_host.properties(onlyItem());
    EXPECT_EQ(properties.value("Id"), "Velmora.fallback");
    EXPECT_EQ(properties.value("Title"), "Velmora");
    EXPECT_EQ(properties.value("ItemIsMenu"), true);
    EXPECT_EQ(properties.value("Menu").value<QDBusObjectPath>().path(), kMenuPath);
}

TEST_F(FallbackMenuTest, LayoutHoldsTheEntries) {
    const MenuLayoutItem root = layout();
    EXPECT_EQ(m_signature, "u(ia{sv}av)");
    EXPECT_EQ(root.properties.value("children-display"), "submenu");
    ASSERT_EQ(root.children.size(), 4);
    EXPECT_EQ(root.children[0].properties.value("label"), QString::fromUtf8("Settings…"));
    EXPECT_EQ(root.children[2].properties.value("type"), "separator");
    EXPECT_EQ(root.children[3].properties.value("label"), "Quit");
    EXPECT_EQ(qdbus_cast<MenuShortcut>(root.children[3].properties.value("shortcut")),
              (MenuShortcut{{"Control", "q"}}));
    EXPECT_FALSE(root.children[1].properties.contains("shortcut"));
}

TEST_F(FallbackMenuTest, LayoutOfDepthZeroHasNoChildren) {
    EXPECT_TRUE(layout(0, 0).children.isEmpty());
    EXPECT_EQ(layout(1, -1).properties.value("label"), QString::fromUtf8("Settings…"));
}

TEST_F(FallbackMenuTest, LayoutGivesOnlyTheWantedProperties) {
    const MenuLayoutItem root = layout(0, -1, {"label"});
    EXPECT_TRUE(root.properties.isEmpty());
    EXPECT_EQ(root.children[3].properties.keys(), QStringList{"label"});
}

TEST_F(FallbackMenuTest, UnderscoreInATitleIsNoMark) {
    m_entries = {{"a", "snake_case", ""}};
    EXPECT_EQ(layout().children[0].properties.value("label"), "snake__case");
}

TEST_F(FallbackMenuTest, LayoutReadsTheTitlesOfThePresentLanguage) {
    layout();
    m_entries[3].title = "Beenden";
    EXPECT_EQ(layout().children[3].properties.value("label"), "Beenden");
}

TEST_F(FallbackMenuTest, ChangeOfLanguageIsAnnounced) {
    m_entries[3].title = "Beenden";
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(qApp, &change);
    m_host.roundTrip(onlyItem());
    EXPECT_EQ(m_host.signalCounts["LayoutUpdated"], 1);
}

TEST_F(FallbackMenuTest, RedrawnFallbackAnnouncesItsMenuOnlyIfThatChanged) {
    m_bar->setImage(kFallback.id, imageOf(1));
    m_host.roundTrip(onlyItem());
    EXPECT_EQ(m_host.signalCounts["LayoutUpdated"], 0);
    m_entries[3].title = "Beenden";
    m_bar->setImage(kFallback.id, imageOf(1));
    m_host.roundTrip(onlyItem());
    EXPECT_EQ(m_host.signalCounts["LayoutUpdated"], 1);
}

TEST_F(FallbackMenuTest, EveryChangeOfTheMenuHasARevisionOfItsOwn) {
    const auto revision = [this] {
        return m_host
            .call(onlyItem(), kMenuPath, kMenuInterface, QStringLiteral("GetLayout"), {0, -1, QStringList()})
            .arguments()
            .value(0)
            .toUInt();
    };
    const uint first = revision();
    EXPECT_EQ(revision(), first);
    m_entries[3].title = "Beenden";
    const uint second = revision();
    EXPECT_GT(second, first);
    m_entries.pop_back();
    EXPECT_GT(revision(), second);
}

TEST_F(FallbackMenuTest, MenuWithoutEntriesDoesNotOpen) {
    m_entries.clear();
    m_host.call(onlyItem(), kItemPath, kItemInterface, "Activate", {100, 20});
    m_host.roundTrip(onlyItem());
    QCoreApplication::processEvents();
    EXPECT_EQ(m_bar->menu().menu(), nullptr);
}

TEST_F(FallbackMenuTest, AboutToShowTellsWhetherTheMenuChanged) {
    const auto aboutToShow = [this] {
        return m_host.call(onlyItem(), kMenuPath, kMenuInterface, QStringLiteral("AboutToShow"), {0})
            .arguments()
            .value(0);
    };
    EXPECT_EQ(aboutToShow(), false);
    m_entries[3].title = "Beenden";
    EXPECT_EQ(aboutToShow(), true);
    EXPECT_EQ(aboutToShow(), false);
}

TEST_F(FallbackMenuTest, ClickedEntryIsChosen) {
    std::vector<std::string> chosen;
    const Subscription subscription =
        m_bar->menuChosen.subscribe([&](const std::string& action) { chosen.push_back(action); });
    event(4, "opened");
    event(4, "hovered");
    event(4, "clicked");
    ASSERT_TRUE(waitUntil([&] { return !chosen.empty(); }));
    EXPECT_EQ(chosen, Strings{"menu.quit"});
}

TEST_F(FallbackMenuTest, SeparatorChoosesNothing) {
    int chosen = 0;
    const Subscription subscription = m_bar->menuChosen.subscribe([&](const std::string&) { ++chosen; });
    EXPECT_EQ(event(3, "clicked").type(), QDBusMessage::ReplyMessage);
    m_host.roundTrip(onlyItem());
    EXPECT_EQ(chosen, 0);
}

TEST_F(FallbackMenuTest, UnknownEntryIsAnError) {
    EXPECT_EQ(event(99, "clicked").type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(m_host.call(onlyItem(), kMenuPath, kMenuInterface, "GetProperty", {99, "label"}).type(),
              QDBusMessage::ErrorMessage);
    EXPECT_EQ(m_host.call(onlyItem(), kMenuPath, kMenuInterface, "GetLayout", {99, -1, QStringList()}).type(),
              QDBusMessage::ErrorMessage);
}

TEST_F(FallbackMenuTest, SinglePropertyAndGroupOfProperties) {
    const QDBusMessage label =
        m_host.call(onlyItem(), kMenuPath, kMenuInterface, "GetProperty", {4, "label"});
    EXPECT_EQ(label.arguments().value(0).value<QDBusVariant>().variant(), "Quit");
    const QDBusMessage group = m_host.call(onlyItem(), kMenuPath, kMenuInterface, "GetGroupProperties",
                                           {QVariant::fromValue(QList<int>{4, 99, 1}), QStringList{"label"}});
    EXPECT_EQ(group.signature(), "a(ia{sv})");
    const auto items = qdbus_cast<QList<MenuItemProperties>>(group.arguments().value(0));
    ASSERT_EQ(items.size(), 2);
    EXPECT_EQ(items[0].id, 4);
    EXPECT_EQ(items[0].properties.value("label"), "Quit");
    EXPECT_EQ(items[1].id, 1);
}

TEST_F(FallbackMenuTest, GroupsOfEventsNameTheUnknownEntries) {
    int chosen = 0;
    const Subscription subscription = m_bar->menuChosen.subscribe([&](const std::string&) { ++chosen; });
    const QList<MenuEvent> events{{4, "clicked", QDBusVariant(0), 0}, {99, "clicked", QDBusVariant(0), 0}};
    const QDBusMessage reply =
        m_host.call(onlyItem(), kMenuPath, kMenuInterface, "EventGroup", {QVariant::fromValue(events)});
    EXPECT_EQ(qdbus_cast<QList<int>>(reply.arguments().value(0)), QList<int>{99});
    EXPECT_TRUE(waitUntil([&] { return chosen == 1; }));

    m_entries[3].title = "Beenden";
    const QDBusMessage about = m_host.call(onlyItem(), kMenuPath, kMenuInterface, "AboutToShowGroup",
                                           {QVariant::fromValue(QList<int>{0, 99})});
    EXPECT_EQ(about.signature(), "aiai");
    EXPECT_EQ(qdbus_cast<QList<int>>(about.arguments().value(0)), QList<int>{0});
    EXPECT_EQ(qdbus_cast<QList<int>>(about.arguments().value(1)), QList<int>{99});
}

TEST_F(FallbackMenuTest, MenuHasItsProperties) {
    const QDBusMessage reply =
        m_host.call(onlyItem(), kMenuPath, "org.freedesktop.DBus.Properties", "GetAll", {kMenuInterface});
    const auto properties = qdbus_cast<QVariantMap>(reply.arguments().value(0));
    EXPECT_EQ(properties.value("Version"), QVariant(3U));
    EXPECT_EQ(properties.value("Status"), "normal");
    EXPECT_EQ(properties.value("TextDirection"), "ltr");
    EXPECT_EQ(properties.value("IconThemePath"), QStringList());
}

TEST_F(FallbackMenuTest, HostThatActivatesTheFallbackGetsOurOwnMenu) {
    int activations = 0;
    std::vector<std::string> chosen;
    const Subscription activated =
        m_bar->activated.subscribe([&](const std::string&, const Anchor&) { ++activations; });
    const Subscription subscription =
        m_bar->menuChosen.subscribe([&](const std::string& action) { chosen.push_back(action); });
    m_host.call(onlyItem(), kItemPath, kItemInterface, "Activate", {100, 20});
    ASSERT_TRUE(waitUntil([&] { return m_bar->menu().menu() != nullptr; }));
    QMenu* const menu = m_bar->menu().menu();
    ASSERT_EQ(menu->actions().size(), 4);
    EXPECT_TRUE(menu->actions()[2]->isSeparator());
    EXPECT_EQ(menu->actions()[3]->text(), "Quit");
    menu->actions()[3]->trigger();
    ASSERT_TRUE(waitUntil([&] { return !chosen.empty(); }));
    EXPECT_EQ(chosen, Strings{"menu.quit"});
    EXPECT_EQ(activations, 0);
}

TEST_F(FallbackMenuTest, SecondActivationClosesTheMenu) {
    m_host.call(onlyItem(), kItemPath, kItemInterface, "ContextMenu", {100, 20});
    ASSERT_TRUE(waitUntil([&] { return m_bar->menu().menu() != nullptr; }));
    m_host.call(onlyItem(), kItemPath, kItemInterface, "ContextMenu", {100, 20});
    EXPECT_TRUE(waitUntil([&] { return m_bar->menu().menu() == nullptr; }));
}

TEST_F(NotifierStatusBarTest, HostThatNeedsAMenuOpensTheModuleByItsFirstEntry) {
    start(kMenuHost);
    m_bar->menuEntries = [](const std::string&) {
        return std::vector<StatusMenuEntry>{{std::string(kActivateAction), "Processor", ""},
                                            {"menu.settings", "Settings…", ","}};
    };
    registerItems({kCpu});
    EXPECT_EQ(m_host.properties(onlyItem()).value("ItemIsMenu"), false);

    std::vector<std::string> opened;
    std::vector<std::string> chosen;
    const Subscription activated =
        m_bar->activated.subscribe([&](const std::string& id, const Anchor&) { opened.push_back(id); });
    const Subscription subscription =
        m_bar->menuChosen.subscribe([&](const std::string& action) { chosen.push_back(action); });
    const QDBusMessage reply =
        m_host.call(onlyItem(), kMenuPath, kMenuInterface, "GetLayout", {0, -1, QStringList()});
    const auto root = qdbus_cast<MenuLayoutItem>(reply.arguments().value(1));
    ASSERT_EQ(root.children.size(), 2);
    EXPECT_EQ(root.children[0].properties.value("label"), "Processor");
    EXPECT_EQ(root.children[1].properties.value("label"), QString::fromUtf8("Settings…"));
    for (const int id : {1, 2}) {
        m_host.call(onlyItem(), kMenuPath, kMenuInterface, "Event",
                    {id, "clicked", QVariant::fromValue(QDBusVariant(0)), 0U});
    }
    ASSERT_TRUE(waitUntil([&] { return !opened.empty() && !chosen.empty(); }));
    EXPECT_EQ(opened, Strings{"Velmora.cpu"});
    EXPECT_EQ(chosen, Strings{"menu.settings"});
}

}  // namespace
}  // namespace velmora
