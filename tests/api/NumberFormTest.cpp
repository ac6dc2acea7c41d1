// How hosts may show the integers that modules make.
#include "Documents.h"
#include "LaneDocuments.h"
#include "StopHost.h"

#include <otx/diag/IFlashSession.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxValueBehaviour.h>
#include <otx/value/Values.h>

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

namespace {

using namespace api;

const std::string flash = " xmlns:f=\"http://iso.org/OTX/1.0.0/Flash\"";
const std::string vehicle = " xmlns:c=\"http://iso.org/OTX/1.0.0/ComInterface\"";

// Has two blocks, and is asked for nothing else.
class TwoBlocks final : public COtxValueBehaviour, public OTX::IFlashSession {
public:
    TwoBlocks() : COtxValueBehaviour(OTX::ValueType::FlashSession) {}

    OTX::IFlashSession& FlashSession() override { return *this; }

    std::int64_t GetNumberOfBlocks() override { return 2; }

    COtxValue GetSessionID() override { return {}; }
    std::int64_t GetNumberOfSegments(std::int64_t) override { return 0; }
    std::int64_t GetStartAddress(std::int64_t, std::int64_t) override { return 0; }
    std::int64_t GetUncompressedSize(std::int64_t, std::int64_t) override { return 0; }
    COtxValue GetDownloadData(std::int64_t, std::int64_t, std::int64_t, std::int64_t) override { return {}; }
    std::int64_t GetNumberOfOwnIdents(std::int64_t) override { return 0; }
    COtxValue GetOwnIdent(std::int64_t, std::int64_t) override { return {}; }
    std::int64_t GetNumberOfSecurities(std::int64_t) override { return 0; }
    COtxValue GetSecurityMethod(std::int64_t, std::int64_t) override { return {}; }
    COtxValue GetLogicalBlockID(std::int64_t) override { return {}; }
    std::int64_t GetCompressedSize(std::int64_t, std::int64_t) override { return 0; }
    COtxValue GetLogicalBlockIndex(std::int64_t) override { return {}; }
    COtxValue GetSecurityAccessLevel() override { return {}; }
    COtxValue GetMaxNumberOfBlockLength(std::int64_t) override { return {}; }
    COtxValue GetCompressionEncryption(std::int64_t, std::int64_t) override { return {}; }
    COtxValue GetFlashDataAddressLength(std::int64_t) override { return {}; }
    COtxValue GetFlashDataSizeLength(std::int64_t) override { return {}; }
    COtxValue GetChecksum(std::int64_t, std::int64_t) override { return {}; }
};

// The form of `result` among the out parameters.
COtxInt::Radix formOfResult(const COtxValue& out) {
    return dynamic_cast<const COtxIntBehaviour&>(*out.Map().at(COtxString("result")).GetBehaviourReference()).Radix();
}

COtxInt::Radix formOf(const std::string& type, const std::string& flow) {
    const auto sequencer = load(document(procedure(
        "main", flow, declared("inParam", "session", "f:FlashSession\"" + flash + ">") + declared("outParam", "result", type))));
    const auto host = std::make_shared<StopHost>();
    sequencer->SetHost(host);
    const COtxMap arguments(std::map<const std::string, COtxValue>{{"session", COtxValue(std::make_shared<TwoBlocks>())}});
    return formOfResult(sequencer->Run("main", arguments, false));
}

TEST(NumberForm, OfFlashDataIsDecimal) {
    EXPECT_EQ(formOf("Integer\">",
                     "<action id=\"1\"><realisation xsi:type=\"Assignment\"><result xsi:type=\"IntegerVariable\" "
                     "name=\"result\"/><term xsi:type=\"f:GetNumberOfBlocks\"" + flash +
                         "><f:session xsi:type=\"f:FlashSessionValue\" valueOf=\"session\"/></term></realisation></action>"),
              COtxInt::Decimal);
}

TEST(NumberForm, OfAudiencesAndStatesOfInterfacesIsDecimal) {
    EXPECT_EQ(formOf("f:Audience\"" + flash + ">", ""), COtxInt::Decimal);
    EXPECT_EQ(formOf("c:ConnectionStatus\"" + vehicle + ">", ""), COtxInt::Decimal);
}

std::string assignment(const std::string& to, const std::string& from) {
    return "<action id=\"" + to + "\"><realisation xsi:type=\"Assignment\"><result xsi:type=\"IntegerVariable\" name=\"" + to +
           "\"/><term xsi:type=\"IntegerValue\" valueOf=\"" + from + "\"/></realisation></action>";
}

// An argument of the host that is assigned, goes through a procedure and comes back.
TEST(NumberForm, OfAnIntegerGoesWhereItGoes) {
    const std::string passing =
        assignment("copy", "n") +
        "<action id=\"call\"><realisation xsi:type=\"ProcedureCall\" procedure=\"pass\"><arguments><inArg param=\"a\"><term "
        "xsi:type=\"IntegerValue\" valueOf=\"copy\"/></inArg><outArg param=\"b\"><variable xsi:type=\"IntegerVariable\" "
        "name=\"result\"/></outArg></arguments></realisation></action>";
    const auto sequencer =
        load(document(procedure("main", passing, integer("inParam", "n", 0) + integer("outParam", "result", 0),
                                integer("variable", "copy", 0)) +
                      procedure("pass", assignment("b", "a"), integer("inParam", "a", 0) + integer("outParam", "b", 0))));
    sequencer->SetHost(std::make_shared<StopHost>());
    for (const auto form : {COtxInt::Binary, COtxInt::Octal, COtxInt::Decimal, COtxInt::Hexadecimal}) {
        const COtxValue arguments = COtxMap(std::map<const std::string, COtxValue>{{"n", COtxInt(255, form)}});
        EXPECT_EQ(formOfResult(sequencer->Run("main", arguments, false)), form);
    }
}

}  // namespace
