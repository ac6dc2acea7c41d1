// Names of classes and functions as the trace shows them, whatever the compiler writes.
#include <otx/log/Names.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <typeinfo>
#include <vector>

namespace otxns {

struct Context {};
struct Term_base {};
struct Add_base {};

template <class Base>
class Term_impl : public Base {
public:
    Term_impl() { made = __PRETTY_FUNCTION__; }
    std::vector<std::string> eval(Context&) const { return {__PRETTY_FUNCTION__}; }
    template <class Type>
    std::string member(Type) const {
        return __PRETTY_FUNCTION__;
    }
    static const char* fixed(std::vector<std::string>) { return __PRETTY_FUNCTION__; }
    std::string lambda() const {
        return [](int) { return std::string(__PRETTY_FUNCTION__); }(1);
    }
    std::string lambdaInLambda() const {
        return [] { return [] { return std::string(__PRETTY_FUNCTION__); }(); }();
    }
    std::string local() const {
        struct Local {
            static std::string call() { return __PRETTY_FUNCTION__; }
        };
        return Local::call();
    }
    operator bool() const {
        asBool = __PRETTY_FUNCTION__;
        return true;
    }
    std::string operator()(int) const { return __PRETTY_FUNCTION__; }
    std::string operator<(int) const { return __PRETTY_FUNCTION__; }
    std::string operator<<(int) const { return __PRETTY_FUNCTION__; }
    std::string operator->*(int) const { return __PRETTY_FUNCTION__; }
    std::string operator[](int) const& noexcept { return __PRETTY_FUNCTION__; }

    std::string made;
    mutable std::string asBool;
};

// As behaviour is written: specialisations of the declared operations.
template <>
std::vector<std::string> Term_impl<Add_base>::eval(Context&) const {
    return {__PRETTY_FUNCTION__, [&](int) { return std::string(__PRETTY_FUNCTION__); }(1)};
}

template <>
template <>
std::string Term_impl<Add_base>::member(double) const {
    return __PRETTY_FUNCTION__;
}

template <int Number, bool Flag>
struct Numbered {
    static std::string name() { return __PRETTY_FUNCTION__; }
};

namespace {

std::string hidden() { return __PRETTY_FUNCTION__; }
struct Hidden {};

}  // namespace

std::function<void(int)> plain() { return nullptr; }
const char* ofPointer = nullptr;
void (*returnsPointer())(int) {
    ofPointer = __PRETTY_FUNCTION__;
    return nullptr;
}

}  // namespace otxns

namespace {

std::string function(const std::string& pretty) { return Hvt::functionName(pretty.c_str()); }

}  // namespace

TEST(FunctionName, OfClassTemplates) {
    const otxns::Term_impl<otxns::Term_base> term;
    otxns::Context context;
    EXPECT_EQ(function(term.eval(context)[0]), "otxns::Term_impl<class otxns::Term_base>::eval");
    EXPECT_EQ(function(term.made), "otxns::Term_impl<class otxns::Term_base>::Term_impl");
    EXPECT_EQ(function(term.member(1)), "otxns::Term_impl<class otxns::Term_base>::member");
    EXPECT_EQ(function(term.member(std::vector<int>())), "otxns::Term_impl<class otxns::Term_base>::member");
    EXPECT_EQ(function(term.fixed({})), "otxns::Term_impl<class otxns::Term_base>::fixed");
}

TEST(FunctionName, OfExplicitSpecialisations) {
    const otxns::Term_impl<otxns::Add_base> term;
    otxns::Context context;
    EXPECT_EQ(function(term.eval(context)[0]), "otxns::Term_impl<class otxns::Add_base>::eval");
    EXPECT_EQ(function(term.eval(context)[1]), "otxns::Term_impl<class otxns::Add_base>::eval::<lambda>");
    EXPECT_EQ(function(term.member(2.0)), "otxns::Term_impl<class otxns::Add_base>::member");
}

TEST(FunctionName, OfLambdasAndLocalClasses) {
    const otxns::Term_impl<otxns::Term_base> term;
    EXPECT_EQ(function(term.lambda()), "otxns::Term_impl<class otxns::Term_base>::lambda::<lambda>");
    EXPECT_EQ(function(term.lambdaInLambda()),
              "otxns::Term_impl<class otxns::Term_base>::lambdaInLambda::<lambda>::<lambda>");
    EXPECT_EQ(function(term.local()), "otxns::Term_impl<class otxns::Term_base>::local::Local::call");
}

TEST(FunctionName, OfOperators) {
    const otxns::Term_impl<otxns::Term_base> term;
    const std::string prefix = "otxns::Term_impl<class otxns::Term_base>::operator";
    EXPECT_EQ(function(term(1)), prefix + "()");
    EXPECT_EQ(function(term < 1), prefix + "<");
    EXPECT_EQ(function(term << 1), prefix + "<<");
    EXPECT_EQ(function(term->*1), prefix + "->*");
    EXPECT_EQ(function(term[1]), prefix + "[]");
    EXPECT_TRUE(static_cast<bool>(term));
    EXPECT_EQ(function(term.asBool), prefix + " bool");
}

TEST(FunctionName, OfPlainFunctions) {
    EXPECT_EQ(function(otxns::hidden()), "otxns::(anonymous namespace)::hidden");
    EXPECT_EQ(function(otxns::Numbered<3, true>::name()), "otxns::Numbered<3,true>::name");
    otxns::returnsPointer();
    EXPECT_EQ(function(otxns::ofPointer), "otxns::returnsPointer");
    EXPECT_EQ(function("int main()"), "main");
    EXPECT_EQ(function("main"), "main");
    EXPECT_EQ(function(""), "");
}

// Both spellings, with either compiler.
TEST(FunctionName, UnderstandsBothCompilers) {
    EXPECT_EQ(function("COtxValue otxns::Add_impl<Base>::eval(OtxContext&) const [with Base = otxns::Add_base]"),
              "otxns::Add_impl<class otxns::Add_base>::eval");
    EXPECT_EQ(function("virtual COtxValue otxns::Add_impl<otxns::Add_base>::eval(OtxContext &) const [Base = "
                       "otxns::Add_base]"),
              "otxns::Add_impl<class otxns::Add_base>::eval");
    EXPECT_EQ(function("virtual COtxValue otxns::Add_impl<otxns::Add_base>::eval(OtxContext &) const"),
              "otxns::Add_impl<class otxns::Add_base>::eval");
    EXPECT_EQ(function("otxns::Add_impl<otxns::Add_base>::eval(OtxContext&) const::<lambda(int)>"),
              "otxns::Add_impl<class otxns::Add_base>::eval::<lambda>");
    EXPECT_EQ(function("auto otxns::Add_impl<otxns::Add_base>::eval(OtxContext &)::(anonymous "
                       "class)::operator()(int) const [Base = otxns::Add_base]"),
              "otxns::Add_impl<class otxns::Add_base>::eval::<lambda>");
    EXPECT_EQ(function("std::map<A, B> ns::f(A, B) [with A = int; B = std::vector<int>]"), "ns::f");
    EXPECT_EQ(function("void ns::X<A, B>::f() [with A = int; B = std::vector<ns::Y>]"),
              "ns::X<int,class std::vector<class ns::Y> >::f");
}

TEST(FunctionName, BearsWhatIsNoFunction) {
    for (const char* odd : {"<", ">", "(", ")", "[", "]", "a<b", "f(", "x [with ]", " [", "operator", "<lambda", "(*"})
        EXPECT_NO_THROW(Hvt::functionName(odd)) << odd;
}

TEST(ClassName, PrefixesClassesAndTheirArguments) {
    EXPECT_EQ(Hvt::className(typeid(otxns::Term_base).name()), "class otxns::Term_base");
    EXPECT_EQ(Hvt::className(typeid(otxns::Term_impl<otxns::Term_base>).name()),
              "class otxns::Term_impl<class otxns::Term_base>");
    EXPECT_EQ(Hvt::className(typeid(otxns::Term_impl<otxns::Term_impl<otxns::Add_base>>).name()),
              "class otxns::Term_impl<class otxns::Term_impl<class otxns::Add_base> >");
    EXPECT_EQ(Hvt::className(typeid(otxns::Numbered<-1, false>).name()), "class otxns::Numbered<-1,false>");
    EXPECT_EQ(Hvt::className(typeid(int).name()), "int");
    EXPECT_EQ(Hvt::className(typeid(std::vector<unsigned long>).name()),
              "class std::vector<unsigned long,class std::allocator<unsigned long> >");
    EXPECT_EQ(Hvt::className(typeid(otxns::Hidden).name()), "class otxns::(anonymous namespace)::Hidden");
    EXPECT_EQ(Hvt::className("no mangled name"), "class no mangled name");
}
