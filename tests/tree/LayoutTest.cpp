// What each class holds, in the order of its compiled form, and the literals of the enumerations: saved files depend on it.
#include <schema/Holders.h>
#include <schema/Registry.h>

#include <schema/ComInterface.h>
#include <schema/DiagCom.h>
#include <schema/DiagComPlus.h>
#include <schema/DiagDataBrowsing.h>
#include <schema/ExternalServiceProvider.h>
#include <schema/Flash.h>
#include <schema/HMI.h>
#include <schema/Logging.h>
#include <schema/StringUtil.h>
#include <schema/core.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

std::string text(std::u16string_view name) { return {name.begin(), name.end()}; }

// The type of an attribute, by the operations of its holder; empty for an enumeration.
template <typename T>
bool holds(const schema::Attribute& attribute) {
    return attribute.operations == &schema::oneAttribute<T> || attribute.operations == &schema::optionalAttribute<T>;
}
std::string typeOf(const schema::Attribute& attribute) {
    if (holds<bool>(attribute)) return " boolean";
    if (holds<long long>(attribute)) return " long";
    if (holds<double>(attribute)) return " double";
    if (holds<schema::hex_binary>(attribute)) return " hexBinary";
    if (holds<schema::date_time>(attribute)) return " dateTime";
    return {};
}

std::string fields(const schema::ClassTable& table) {
    std::string line;
    if (table.inherited != nullptr) line = fields(*table.inherited);
    if (table.order != nullptr) line += " order";
    for (const schema::Element& member : table.elements) {
        line += ' ' + text(schema::elementNames()[member.name]) + ':' + member.memberType.name;
        line += std::array{"", "?", "*"}[static_cast<std::size_t>(member.operations->cardinality)];
        if (member.factory == nullptr) line += '!';
    }
    for (const schema::Attribute& member : table.attributes) {
        line += " @" + text(schema::elementNames()[member.name]) + typeOf(member);
        line += std::array{"", "?", "="}[static_cast<std::size_t>(member.presence)];
    }
    return line;
}

std::vector<std::string> layout() {
    std::vector<std::string> lines;
    for (const schema::TypeName& name : schema::registeredNames()) {
        const schema::RegisteredType& entry = *schema::findType(name.name, name.space);
        lines.push_back(std::string(name.space) + ' ' + name.name + (entry.table == nullptr ? " simple" : fields(*entry.table)));
    }
    return lines;
}

std::vector<std::string> kept() {
    std::ifstream file(VELKOTX_LAYOUT);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
}

// A change of this list is a change of the compiled form: files that were saved before can't be read any more.
// `ninja rebase-layout` writes the list anew.
TEST(Layout, OfEachClassIsThatOfTheFilesThatWereSaved) {
    const auto found = layout();
    if (std::getenv("REBASE_LAYOUT") != nullptr) {
        std::ofstream file(VELKOTX_LAYOUT);
        for (const std::string& line : found) file << line << '\n';
    }
    const auto expected = kept();
    for (std::size_t i = 0; i < std::max(found.size(), expected.size()); ++i)
        ASSERT_EQ(i < found.size() ? found[i] : "", i < expected.size() ? expected[i] : "") << "line " << i + 1;
}

template <typename Enumeration>
std::string literals() {
    std::string joined;
    for (const auto& literal : Enumeration::literals()) joined += std::string(joined.empty() ? "" : " ") + std::string(literal);
    return joined;
}

TEST(Layout, OfEachEnumerationIsTheOrderOfItsLiterals) {
    EXPECT_EQ(literals<otxns::Visibility>(), "PACKAGE PRIVATE PUBLIC");
    EXPECT_EQ(literals<otxns::EncodingSize>(), "8-BIT 16-BIT 32-BIT 64-BIT");
    EXPECT_EQ(literals<otxns::EncodingType>(), "UNSIGNED SIGNED-BINARY TWOS-COMPLEMENT");
    EXPECT_EQ(literals<otxns::Endianness>(), "LITTLE-ENDIAN MIXED-ENDIAN BIG-ENDIAN");
    EXPECT_EQ(literals<DiagCom::ResponseStates>(), "FAILED INVALID NEGATIVE POSITIVE");
    EXPECT_EQ(literals<DiagCom::ResultStates>(),
              "ALL_FAILED ALL_INVALID ALL_NEGATIVE ALL_POSITIVE FAILED INVALID NEGATIVE POSITIVE");
    EXPECT_EQ(literals<DiagComPlus::ComChannelStates>(), "COMMUNICATION ONLINE OFFLINE CREATED");
    EXPECT_EQ(literals<DiagDataBrowsing::ComChannelCategories>(), "BASE_VARIANT FUNCTIONAL_GROUP PROTOCOL");
    EXPECT_EQ(literals<ComInterface::ConnectionStatusEnum>(), "eCS_CONNECTED eCS_CURRENT eCS_NOTCONNECTED");
    EXPECT_EQ(literals<Flash::Audiences>(), "SUPPLIER DEVELOPMENT MANUFACTURING AFTERSALES AFTERMARKET");
    EXPECT_EQ(literals<Flash::Directions>(), "UPLOAD DOWNLOAD");
    EXPECT_EQ(literals<Flash::FlashFileFormats>(), "BINARY INTEL SREC");
    EXPECT_EQ(literals<StringUtil::Encodings>(), "US-ASCII ISO-8859-1 UTF-8 UTF-16BE UTF-16LE UTF-16 BIN OCT HEX");
    EXPECT_EQ(literals<HMI::MessageTypes>(), "INFO WARNING ERROR YESNO_QUESTION YESNOCANCEL_QUESTION");
    EXPECT_EQ(literals<HMI::ConfirmationTypes>(), "YES NO CANCEL");
    EXPECT_EQ(literals<ExternalServiceProvider::PropertyFlags>(), "READ-ONLY WRITE-ONLY READ-WRITE");
    EXPECT_EQ(literals<Logging::SeverityLevels>(), "TRACE DEBUG INFO WARN ERROR FATAL");
    EXPECT_EQ(literals<Logging::LogLevels>(), "ALL TRACE DEBUG INFO WARN ERROR FATAL OFF");
}

}  // namespace
