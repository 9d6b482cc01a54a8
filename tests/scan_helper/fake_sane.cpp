// A library for scanners whose one scanner does what the variable FAKE_SANE says.

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <pthread.h>
#include <sane/sane.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

SANE_Auth_Callback g_authorize = nullptr;
int g_rowsRead = 0;

bool does(const char* what)
{
    const char* wanted = std::getenv("FAKE_SANE");
    return wanted != nullptr && std::strcmp(wanted, what) == 0;
}

void hangIf(const char* what)
{
    while (does(what)) {
        ::pause();
    }
}

int g_pipe[2];
pthread_t g_reader;

// A driver's thread that takes and gives back memory all the time, and writes now and then. The
// sanitizer doesn't know that a frame is left when its thread is ended.
[[gnu::no_sanitize_address]] void* readForEver(void* /*nothing*/)
{
    int before = 0;
    pthread_setcanceltype(PTHREAD_CANCEL_ASYNCHRONOUS, &before);
    for (;;) {
        for (int i = 0; i < 1000; ++i) {
            void* volatile memory = std::malloc(5000);
            std::free(memory);
        }
        static_cast<void>(!::write(g_pipe[1], "", 0));
    }
    return nullptr;
}

// How often this process has waited for something.
long waits()
{
    rusage used{};
    static_cast<void>(::getrusage(RUSAGE_SELF, &used));
    return used.ru_nvcsw;
}

constexpr int kEmptyReads = 40;
int g_emptyReads = 0;
long g_waitsBefore = 0;

// Some reads that give nothing; the one after them fails where nobody waited between them.
SANE_Status giveNothing()
{
    if (g_emptyReads == 0) {
        g_waitsBefore = waits();
    }
    const bool isEnough = g_emptyReads++ == kEmptyReads;
    const bool wasPatient = waits() - g_waitsBefore > kEmptyReads / 2;
    return !isEnough ? SANE_STATUS_GOOD : wasPatient ? SANE_STATUS_EOF : SANE_STATUS_IO_ERROR;
}

constexpr SANE_Int kWidth = 100;
constexpr SANE_Int kRows = 50;

} // namespace

extern "C" {

SANE_Status sane_init(SANE_Int* /*version*/, SANE_Auth_Callback authorize)
{
    g_authorize = authorize;
    return does("fail to begin") ? SANE_STATUS_NO_MEM : SANE_STATUS_GOOD;
}

void sane_exit()
{
    hangIf("hang at the end");
}

SANE_Status sane_get_devices(const SANE_Device*** list, SANE_Bool /*localOnly*/)
{
    hangIf("hang while listing");
    static const SANE_Device device{"fake", "Maker", nullptr, "scanner"};
    static const SANE_Device* one[] = {&device, nullptr};
    static const SANE_Device* none[] = {nullptr};
    *list = does("list nothing") ? none : one;
    // Some drivers print where answers go.
    static_cast<void>(!::write(STDOUT_FILENO, "found one\n", 10));
    return SANE_STATUS_GOOD;
}

SANE_Status sane_open(SANE_String_Const /*name*/, SANE_Handle* handle)
{
    hangIf("hang while opening");
    if (does("want a password")) {
        char user[SANE_MAX_USERNAME_LEN];
        char password[SANE_MAX_PASSWORD_LEN];
        g_authorize("fake", user, password);
        return SANE_STATUS_ACCESS_DENIED;
    }
    *handle = &g_rowsRead;
    return SANE_STATUS_GOOD;
}

void sane_close(SANE_Handle /*handle*/) {}

const SANE_Option_Descriptor* sane_get_option_descriptor(SANE_Handle /*handle*/, SANE_Int /*index*/)
{
    return nullptr;
}

SANE_Status sane_control_option(SANE_Handle /*handle*/, SANE_Int /*index*/, SANE_Action /*action*/,
                                void* /*value*/, SANE_Int* /*info*/)
{
    return SANE_STATUS_UNSUPPORTED;
}

SANE_Status sane_get_parameters(SANE_Handle /*handle*/, SANE_Parameters* parameters)
{
    *parameters = {SANE_FRAME_GRAY, SANE_TRUE, kWidth, kWidth, kRows, 8};
    if (does("claim 100,000 x 100,000")) {
        *parameters = {SANE_FRAME_RGB, SANE_TRUE, 300000, 100000, 100000, 8};
    } else if (does("claim rows of two billion bytes")) {
        *parameters = {SANE_FRAME_GRAY, SANE_TRUE, 2000000000, 10, 10, 16};
    } else if (does("claim short rows")) {
        parameters->bytes_per_line = kWidth - 1;
    } else if (does("claim no width")) {
        parameters->pixels_per_line = 0;
    } else if (does("send a kind that nobody knows")) {
        parameters->format = SANE_Frame(0x0B);
    } else if (does("never end")) {
        *parameters = {SANE_FRAME_GRAY, SANE_TRUE, 100000, 100000, -1, 8};
    } else if (does("never send the last frame")) {
        *parameters = {SANE_FRAME_RED, SANE_FALSE, kWidth, kWidth, kRows, 8};
    }
    return SANE_STATUS_GOOD;
}

SANE_Status sane_start(SANE_Handle /*handle*/)
{
    g_rowsRead = 0;
    if (does("read in a thread")) {
        static_cast<void>(::pipe(g_pipe) +
                          pthread_create(&g_reader, nullptr, readForEver, nullptr));
    }
    return does("warm up") ? SANE_Status(12) : SANE_STATUS_GOOD;
}

SANE_Status sane_read(SANE_Handle /*handle*/, SANE_Byte* bytes, SANE_Int most, SANE_Int* got)
{
    *got = 0;
    if (g_rowsRead == 10) {
        hangIf("hang while reading");
        if (does("crash while reading")) {
            std::abort();
        }
        if (does("end early")) {
            return SANE_STATUS_EOF;
        }
        if (does("give nothing any more")) {
            return SANE_STATUS_GOOD;
        }
        if (does("promise more than there is")) {
            return giveNothing();
        }
    }
    if (does("never end")) {
        *got = most;
        return SANE_STATUS_GOOD;
    }
    if (g_rowsRead == kRows && !does("send more than was claimed")) {
        return SANE_STATUS_EOF;
    }
    *got = std::min(most, kWidth);
    std::memset(bytes, g_rowsRead++, std::size_t(*got));
    return SANE_STATUS_GOOD;
}

void sane_cancel(SANE_Handle /*handle*/)
{
    hangIf("hang while stopping");
    if (does("read in a thread")) {
        pthread_cancel(g_reader);
        pthread_join(g_reader, nullptr);
        ::close(g_pipe[0]);
        ::close(g_pipe[1]);
    }
}

SANE_Status sane_set_io_mode(SANE_Handle /*handle*/, SANE_Bool nonBlocking)
{
    const bool isKnown = nonBlocking == SANE_FALSE || does("promise more than there is");
    return isKnown ? SANE_STATUS_GOOD : SANE_STATUS_UNSUPPORTED;
}

SANE_Status sane_get_select_fd(SANE_Handle /*handle*/, SANE_Int* descriptor)
{
    static const int alwaysReadable = ::open("/dev/zero", O_RDONLY | O_CLOEXEC);
    *descriptor = alwaysReadable;
    return does("promise more than there is") ? SANE_STATUS_GOOD : SANE_STATUS_UNSUPPORTED;
}

} // extern "C"
