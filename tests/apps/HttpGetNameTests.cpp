// Requests to a host whose name is never found. The look for names of this program passes through here.

#include "tests/apps/HttpGetTestCase.h"

#include <atomic>
#include <dlfcn.h>
#include <netdb.h>
#include <string_view>
#include <thread>

namespace {

std::atomic<int> hangingLooks = 0;
std::atomic<bool> mayEnd = false;

} // namespace

// Defined in the program, this comes before that of the C library, for all libraries.
extern "C" int getaddrinfo(const char* node, const char* service, const addrinfo* hints, // NOLINT
                           addrinfo** found)
{
    using namespace std::chrono_literals;
    static const auto real = reinterpret_cast<decltype(&::getaddrinfo)>(::dlsym(RTLD_NEXT, "getaddrinfo"));
    if (node == nullptr || std::string_view(node) != "hangs.invalid")
        return real(node, service, hints, found);
    ++hangingLooks;
    while (!mayEnd)
        std::this_thread::sleep_for(10ms);
    --hangingLooks;
    return EAI_NONAME;
}

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class HttpGetNameTests : public HttpGetTestCase
{
protected:
    HttpGetNameTests() { mayEnd = false; }

    ~HttpGetNameTests() override
    {
        mayEnd = true;
        EngineRun::turnUntil([] { return hangingLooks == 0; });
    }

    const QString origin = u"http://hangs.invalid"_s;
};

} // namespace

TEST_F(HttpGetNameTests, aNameThatIsNeverFoundIsGivenUpAtTheDeadline)
{
    const QFuture<Body> future = start(request(origin, 2s));
    EngineRun::turnUntil([] { return hangingLooks == 1; });
    EXPECT_EQ(result(future), std::nullopt);
    EXPECT_EQ(hangingLooks, 1) << "it still looks, and holds nobody";
}

TEST_F(HttpGetNameTests, oneThatIsCancelledMeanwhileEndsAtOnce)
{
    const auto cancelled = request(origin);
    const QFuture<Body> future = start(cancelled);
    EngineRun::turnUntil([] { return hangingLooks == 1; });
    cancelled->cancel();
    EXPECT_EQ(result(future), std::nullopt);
    EXPECT_EQ(hangingLooks, 1);
}

TEST_F(HttpGetNameTests, aNameThatDoesNotExistIsNothing)
{
    mayEnd = true;
    EXPECT_EQ(get(origin), std::nullopt);
}

} // namespace keelbright::testing
