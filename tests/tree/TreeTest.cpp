// The pattern of the classes: registration, members, containers, copies.
#include "Documents.h"

#include <schema/DiagComPlus.h>
#include <schema/ExternalServiceProvider.h>
#include <schema/Registry.h>

#include <gtest/gtest.h>

namespace tree_tests {
namespace {

const std::string assignment = R"(<action id="a"><realisation xsi:type="Assignment">
    <result xsi:type="IntegerVariable" name="r"/>
    <term xsi:type="Add"><numeral xsi:type="IntegerLiteral" value="1"/><numeral xsi:type="IntegerLiteral" value="2"/></term>
</realisation></action>)";

const std::string pathAction = R"(<action id="a"><realisation xsi:type="Assignment">
    <result xsi:type="ListVariable" name="r"><path>
        <stepByIndex xsi:type="IntegerLiteral" value="0"/>
        <stepByName xsi:type="StringLiteral" value="k"/>
        <stepByIndex xsi:type="IntegerLiteral" value="7"/>
    </path></result>
    <term xsi:type="IntegerLiteral" value="1"/>
</realisation></action>)";

TEST(Registration, EveryConcreteTypeOfEveryModule) {
    EXPECT_EQ(schema::registeredTypes(), 643U);
    EXPECT_NE(schema::findFactory("Add", "http://iso.org/OTX/1.0.0"), nullptr);
    EXPECT_NE(schema::findFactory("ConfirmDialog", "http://iso.org/OTX/1.0.0/HMI"), nullptr);
    EXPECT_NE(schema::findFactory("GetSecurityAccessLevel", "http://iso.org/Quorl/1.0.0/CustomTerms"), nullptr);
}

TEST(Registration, TheNamesOfTheLinkVocabulary) {
    const std::string space = "http://www.w3.org/1999/xlink";
    for (const char* name : {"simple", "extended", "titleEltType", "resourceType", "locatorType", "arcType", "typeType",
                             "hrefType", "roleType", "arcroleType", "titleAttrType", "showType", "actuateType",
                             "labelType", "fromType", "toType"})
        EXPECT_NE(schema::findFactory(name, space), nullptr) << name;
    for (const char* name : {"base64Binary", "hexBinary"})
        EXPECT_NE(schema::findFactory(name, "http://www.w3.org/2005/05/xmlmime"), nullptr) << name;
    // No member takes them, so no document holds one.
    EXPECT_NE(failure(document(R"(<action id="a"><realisation xmlns:l="http://www.w3.org/1999/xlink" xsi:type="l:simple"
        l:href="x"/></action>)")).find("is not derived from"), std::string::npos);
    EXPECT_NE(failure(document(R"(<action id="a"><realisation xmlns:l="http://www.w3.org/1999/xlink"
        xsi:type="l:locatorType" l:type="locator" href="x"/></action>)")).find("expected attribute"), std::string::npos);
}

TEST(Registration, AbstractTypesAreNotRegistered) {
    for (const char* name : {"Term", "NumericTerm", "Node", "EndNode", "ActionRealisation", "DataType", "Variable"})
        EXPECT_EQ(schema::findFactory(name, "http://iso.org/OTX/1.0.0"), nullptr) << name;
    EXPECT_EQ(schema::findFactory("Dialog", "http://iso.org/OTX/1.0.0/HMI"), nullptr);
}

TEST(Registration, AClassAndItsNameFindEachOther) {
    const auto* const entry = schema::findType(typeid(otxns::Add));
    ASSERT_NE(entry, nullptr);
    EXPECT_STREQ(entry->name.name, "Add");
    EXPECT_EQ(schema::findType("Add", "http://iso.org/OTX/1.0.0"), entry);
}

TEST(Tree, MembersHoldTheClassesOfTheirTypeNames) {
    const auto tree = load(document(assignment));
    const auto& realisation = realisationOf(flowOf(*tree).blockBegin().front());
    const auto& made = dynamic_cast<const otxns::Assignment&>(realisation);
    EXPECT_EQ(made.result().name().key(), otxns::Name("r"));
    const auto& sum = dynamic_cast<const otxns::Add&>(made.term());
    ASSERT_EQ(sum.numeral().size(), 2U);
    EXPECT_EQ(dynamic_cast<const otxns::IntegerLiteral&>(sum.numeral()[1]).value(), 2);
}

TEST(Tree, EveryObjectKnowsItsContainerUpToTheRoot) {
    const auto tree = load(document(assignment));
    const schema::type* step = &dynamic_cast<const otxns::Assignment&>(
                                    realisationOf(flowOf(*tree).blockBegin().front())).term();
    std::size_t levels = 0;
    while (step->_container() != nullptr) {
        step = step->_container();
        ++levels;
    }
    EXPECT_EQ(step, tree.get());
    // term, assignment, action, flow, procedure realisation, procedure, procedures, document.
    EXPECT_EQ(levels, 7U);
}

TEST(Tree, ACloneLivesInItsOwnContainers) {
    const auto tree = load(document(assignment));
    const otxns::Flow& flow = flowOf(*tree);
    const std::unique_ptr<otxns::Flow> clone(flow._clone());
    EXPECT_EQ(clone->_container(), nullptr);
    const auto& node = clone->blockBegin().front();
    EXPECT_EQ(node._container(), clone.get());
    EXPECT_NE(&node, &flow.blockBegin().front());
    const auto& copied = dynamic_cast<const otxns::Assignment&>(realisationOf(node));
    EXPECT_EQ(copied._container(), &node);
    EXPECT_EQ(copied.term()._container(), &copied);
    EXPECT_EQ(typeid(copied.term()), typeid(otxns::Add));
}

TEST(Tree, AnAbsentDefaultedAttributeIsACloneOfItsDefault) {
    const std::string text = R"(<?xml version="1.0"?>
<otx xmlns="http://iso.org/OTX/1.0.0" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" id="o" package="p" version="1"
     timestamp="2026-01-15T10:00:00"><declarations>
<constant id="c1" name="a"/><constant id="c2" name="b"/><constant id="c3" name="c" visibility="PUBLIC"/>
</declarations><signatures><signature id="s" name="s"/></signatures></otx>)";
    const auto tree = load(text);
    const auto& constants = tree->declarations()->constant();
    EXPECT_EQ(constants[0].visibility(), "PRIVATE");
    EXPECT_EQ(constants[0].visibility().number(), 1);
    EXPECT_NE(&constants[0].visibility(), &constants[1].visibility());
    EXPECT_EQ(constants[0].visibility()._container(), &constants[0]);
    EXPECT_EQ(constants[2].visibility().number(), 2);
    EXPECT_EQ(tree->signatures()->signature()[0].visibility(), "PACKAGE");
}

TEST(Tree, EachDefaultIsThatOfItsAttribute) {
    const auto tree = load(R"(<?xml version="1.0"?>
<otx xmlns="http://iso.org/OTX/1.0.0" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"
     xmlns:p="http://iso.org/OTX/1.0.0/DiagComPlus" xmlns:x="http://iso.org/OTX/1.0.0/ExternalServiceProvider"
     id="o" package="p" version="1" timestamp="2026-01-15T10:00:00">
<declarations><constant id="c"><realisation><dataType xsi:type="p:ComChannelState"><p:init/></dataType></realisation></constant>
<variable id="v"/><context id="k"/></declarations><validities><validity id="w"/></validities><signatures><signature id="s">
<realisation xsi:type="x:ServiceProviderSignature"><x:properties><x:property id="r"/></x:properties></realisation>
</signature></signatures></otx>)");
    const auto& declarations = *tree->declarations();
    EXPECT_EQ(declarations.constant()[0].visibility(), "PRIVATE");
    EXPECT_EQ(declarations.variable()[0].visibility(), "PRIVATE");
    EXPECT_EQ(dynamic_cast<const otxns::ContextVariableDeclaration&>(declarations.context()[0]).visibility(), "PRIVATE");
    EXPECT_EQ(tree->validities()->validity()[0].visibility(), "PRIVATE");
    const auto& signature = tree->signatures()->signature()[0];
    EXPECT_EQ(signature.visibility(), "PACKAGE");
    const auto& provider = dynamic_cast<const ExternalServiceProvider::ServiceProviderSignature&>(*signature.realisation());
    EXPECT_EQ(provider.properties()->property()[0].accessType(), "READ-ONLY");
    const auto& state =
        dynamic_cast<const DiagComPlus::ComChannelState&>(declarations.constant()[0].realisation()->dataType());
    EXPECT_EQ(state.init()->value(), "OFFLINE");
}

TEST(Tree, APathKeepsTheOrderOfItsSteps) {
    const auto tree = load(document(pathAction));
    const auto& made = dynamic_cast<const otxns::Assignment&>(realisationOf(flowOf(*tree).blockBegin().front()));
    const otxns::Path& path = *made.result().path();
    EXPECT_EQ(path.stepByName().size(), 1U);
    EXPECT_EQ(path.stepByIndex().size(), 2U);
    ASSERT_EQ(path.order().size(), 3U);
    const std::size_t expected[][2] = {{2, 0}, {1, 0}, {2, 1}};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(path.order()[i].id, expected[i][0]) << i;
        EXPECT_EQ(path.order()[i].index, expected[i][1]) << i;
    }
}

TEST(Tree, AFlowKeepsItsSubstitutesInOrder) {
    const auto tree = load(document(R"(<action id="1"/><group id="2"/><mutex id="3"/><action id="4"/><return id="5"/>)"));
    const otxns::Flow& flow = flowOf(*tree);
    ASSERT_EQ(flow.blockBegin().size(), 4U);
    std::string ids;
    for (const otxns::Node& node : flow.blockBegin()) ids += node.id();
    EXPECT_EQ(ids, "1234");
    EXPECT_EQ(typeid(flow.blockBegin()[2]), typeid(otxns::MutexGroup));
    EXPECT_EQ(typeid(*flow.blockEnd()), typeid(otxns::Return));
}

TEST(Tree, ModuleElementsAreInTheirModulesNamespaceAndInheritedOnesInTheCores) {
    const auto tree = load(document(R"(<action id="a"><realisation xmlns:hmi="http://iso.org/OTX/1.0.0/HMI"
        xsi:type="hmi:ConfirmDialog"><hmi:message xsi:type="StringLiteral" value="Ready?"/></realisation></action>)"));
    EXPECT_EQ(flowOf(*tree).blockBegin().size(), 1U);
    // The message is no element of the core: without its prefix nothing takes it, which is no failure.
    EXPECT_EQ(failure(document(R"(<action id="a"><realisation xmlns:hmi="http://iso.org/OTX/1.0.0/HMI"
        xsi:type="hmi:ShowDocumentDialog"><document xsi:type="StringLiteral" value="x"/></realisation></action>)")),
              "expected element 'http://iso.org/OTX/1.0.0/HMI#document'");
}

}  // namespace
}  // namespace tree_tests
