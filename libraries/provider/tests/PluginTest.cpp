// Plug-ins: one that fits, and those that don't.
#include <filesystem>
#include <fstream>
#include <thread>

#include "Fixture.h"

namespace {

using namespace ExternalServiceProvider;

const std::string folder = PLUGIN_FOLDER;

class Plugin : public ProviderLibrary {
protected:
    void SetUp() override { SetProviderFolder(folder); }

    // What asking for the type throws, without the folder's name.
    std::string refusal(const std::string& type) {
        std::string words = thrownBy([&] { create(type); });
        if (const auto place = words.find(folder + '/'); place != std::string::npos) words.erase(place, folder.size() + 1);
        return words;
    }
};

TEST_F(Plugin, MakesProviders) {
    const COtxValue provider = create("Fitting");
    EXPECT_EQ(provider.Type(), OTX::ValueType::ServiceProvider);
    EXPECT_EQ(get("Fitting").GetBehaviourReference(), provider.GetBehaviourReference());
    EXPECT_EQ(endOf(start(provider, "Idle")).Type(), OTX::ValueType::Empty);
    EXPECT_EQ(thrownBy([&] { start(provider, "Work"); }), "25: Provider type 'Fitting' has no service 'Work'");
}

TEST_F(Plugin, IsFoundInAFolderWithASlashBehindIt) {
    SetProviderFolder(folder + '/');
    EXPECT_EQ(create("Fitting").Type(), OTX::ValueType::ServiceProvider);
}

TEST_F(Plugin, StatesItsFailures) {
    EXPECT_EQ(refusal("Nobody"),
              "21: Unknown provider type 'Nobody': it isn't registered, and there is no plug-in 'Nobody.so'");
    EXPECT_EQ(thrownBy([&] { create("Fitting", "Fast"); }), "21: Provider type 'Fitting' has no constructor 'Fast'");
    EXPECT_EQ(thrownBy([&] { create("Fitting", "Failing"); }), "21: Provider type 'Fitting': no licence");
}

TEST_F(Plugin, ThatDoesNotFitIsRefusedWithItsFileAndTheCause) {
    EXPECT_EQ(refusal("NoEntry"), "24: Plug-in 'NoEntry.so' has no entry point 'otxProviderPlugin'");
    EXPECT_EQ(refusal("OtherVersion"), "24: Plug-in 'OtherVersion.so' has version 7 of the interface, 1 is needed");
    EXPECT_EQ(refusal("NoDescription"), "24: Plug-in 'NoDescription.so' gives no description of itself");
    EXPECT_EQ(refusal("NoMaker"), "24: Plug-in 'NoMaker.so' gives an incomplete description of itself");
    EXPECT_EQ(refusal("OtherType"), "24: Plug-in 'OtherType.so' brings providers of type 'Original'");
    EXPECT_EQ(refusal("ThrowingEntry"), "24: Plug-in 'ThrowingEntry.so' failed in its entry point: no hardware key");
    EXPECT_EQ(refusal("IntEntry"),
              "24: Plug-in 'IntEntry.so' failed in its entry point: threw something that is no exception");
    EXPECT_TRUE(refusal("Unresolved").starts_with("24: Plug-in 'Unresolved.so' can't be loaded: undefined symbol: "
                                                  "symbolThatNobodyHas"))
        << refusal("Unresolved");
    EXPECT_EQ(create("Fitting").Type(), OTX::ValueType::ServiceProvider) << "the others aren't touched";
}

TEST_F(Plugin, ThatIsNoSharedObjectIsRefused) {
    const auto own = std::filesystem::path(testing::TempDir()) / "velkotx-plugins";
    std::filesystem::create_directories(own / "Folder.so");
    std::ofstream(own / "Text.so") << "not a shared object, though it is long enough to have the head of one\n";
    std::ofstream(own / "Empty.so");
    SetProviderFolder(own.string());
    const std::string start = "24: Plug-in '" + own.string() + '/';
    EXPECT_EQ(refusal("Text"), start + "Text.so' can't be loaded: invalid ELF header");
    EXPECT_EQ(refusal("Empty"), start + "Empty.so' can't be loaded: file too short");
    EXPECT_EQ(refusal("Folder"), start + "Folder.so' can't be loaded: no regular file");
    std::filesystem::remove_all(own);
}

TEST_F(Plugin, IsNoFileOutsideOfTheFolder) {
    for (const char* const type : {"../plugins/Fitting", "/Fitting", ".", "..", ".hidden", ""})
        EXPECT_EQ(refusal(type), std::string("21: Unknown provider type '") + type +
                                     "': it isn't registered, and no plug-in can have its name");
    const std::string withNull("Fitting\0x", 9);
    EXPECT_EQ(refusal(withNull),
              "21: Unknown provider type '" + withNull + "': it isn't registered, and no plug-in can have its name");
}

TEST_F(Plugin, IsNotAskedForARegisteredType) {
    addScripted("NoEntry");
    EXPECT_EQ(create("NoEntry").Type(), OTX::ValueType::ServiceProvider);
}

TEST_F(Plugin, IsNotFoundWithoutAFolder) {
    SetProviderFolder("");
    EXPECT_EQ(refusal("Fitting"),
              "21: Unknown provider type 'Fitting': it isn't registered, and no folder of plug-ins is named");
    SetProviderFolder(folder + "/missing");
    EXPECT_EQ(refusal("Fitting"),
              "21: Unknown provider type 'Fitting': it isn't registered, and there is no plug-in 'missing/Fitting.so'");
}

TEST_F(Plugin, IsLoadedBySeveralThreadsAtOnce) {
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number)
        threads.emplace_back([&] {
            for (int round = 0; round < 50; ++round) {
                EXPECT_EQ(endOf(start(create("Fitting"), "Idle")).Type(), OTX::ValueType::Empty);
                EXPECT_TRUE(refusal("OtherVersion").starts_with("24: "));
            }
        });
    for (std::thread& thread : threads) thread.join();
}

}  // namespace
