// A Parallel and a service for which there aren't enough threads. Not under a sanitizer that counts the threads itself.
#include "Documents.h"
#include "FlowTest.h"
#include "LaneDocuments.h"
#include "ProviderDocuments.h"
#include "TestProvider.h"
#include "ThreadCount.h"

#include <otx/provider/Provider.h>

#include <atomic>
#include <cerrno>
#include <future>
#include <string>

#include <dlfcn.h>
#include <pthread.h>

#ifdef __has_feature
#if __has_feature(thread_sanitizer) || __has_feature(address_sanitizer)
#define API_SANITIZED
#endif
#endif
#if defined(__SANITIZE_THREAD__) || defined(__SANITIZE_ADDRESS__)
#define API_SANITIZED
#endif

#ifndef API_SANITIZED

namespace {

// How many threads may still begin; unlimited when negative.
std::atomic<int> threadsLeft{-1};

}  // namespace

// Takes the place of the system's for the whole program.
extern "C" __attribute__((visibility("default"))) int pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                                                                     void* (*start)(void*), void* argument) noexcept {
    using Create = int (*)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
    static const auto create = reinterpret_cast<Create>(dlsym(RTLD_NEXT, "pthread_create"));
    if (threadsLeft == 0) return EAGAIN;
    if (threadsLeft > 0) --threadsLeft;
    return create(thread, attributes, start, argument);
}

namespace {

using namespace api;

class ThreadShortage : public FlowTest {
protected:
    ~ThreadShortage() override { threadsLeft = -1; }

    const std::string noState = std::string("other ") + std::future_error(std::future_errc::no_state).what();
};

TEST_F(ThreadShortage, LeavesTheParallelWithoutHavingRunANode) {
    const std::size_t threads = threadCount();
    for (int left = 0; left < 4; ++left) {
        begin(procedure("main", parallel("n1", {set("a1", "g", 1), set("a2", "g", 2), set("a3", "g", 3), set("a4", "g", 4)}) +
                                    set("a5", "y", 5)));
        threadsLeft = left;
        start();
        EXPECT_EQ(outcome(), noState) << left;
        threadsLeft = -1;
        EXPECT_EQ(global("g"), 0) << left;
        EXPECT_EQ(flows(), std::vector<int>{0}) << left;
        start();
        EXPECT_EQ(outcome(), "{}") << "the next run";
        EXPECT_EQ(global("y"), 5);
        session.reset();
        EXPECT_TRUE(isThreadCountReached(threads)) << left;
    }
}

TEST_F(ThreadShortage, IsNoOtxException) {
    begin(procedure("main",
                    handlerOf("Exception", "h1", parallel("n1", {set("a1", "g", 1)}), set("a2", "g", 2), set("a3", "g", 3))));
    threadsLeft = 0;
    start();
    EXPECT_EQ(outcome(), noState);
    threadsLeft = -1;
    EXPECT_EQ(global("g"), 0) << "a handler neither takes it nor runs its finally";
}

TEST_F(ThreadShortage, RefusesAServiceByAnExceptionThatCanBeHandled) {
    class Idle final : public ExternalServiceProvider::Provider {
        ExternalServiceProvider::ServiceWork Execute(const std::string&, const ExternalServiceProvider::ProviderArguments&,
                                                     const ExternalServiceProvider::ProviderVariables&) override {
            return [](const std::stop_token&) {};
        }
    };
    const TestType type("Idle", [](const auto&, const auto&, const auto&) {
        return ExternalServiceProvider::MakeProvider(std::make_shared<Idle>());
    });
    begin(procedure("main", createProvider("a1", "p", "Idle") +
                                handlerOf(providerException("ProviderServiceException"), "h1", executeService("a2", "p", "S"),
                                          set("a3", "g", 1))),
          providerVariable("p"));
    threadsLeft = 0;
    start();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("g"), 1);
    threadsLeft = -1;
    start();
    EXPECT_EQ(outcome(), "{}");
}

TEST_F(ThreadShortage, InALaneCancelsTheRun) {
    begin(procedure(
        "main", parallel("n1", {parallel("n2", {set("a1", "g", 1), set("a2", "g", 2)}), forEver("l1", increment("a3", "x"))}) +
                    set("a4", "y", 4)));
    threadsLeft = 3;
    start();
    EXPECT_EQ(outcome(), cancelled);
    threadsLeft = -1;
    EXPECT_EQ(global("g"), 0);
    EXPECT_EQ(global("y"), 0);
}

}  // namespace

#endif
