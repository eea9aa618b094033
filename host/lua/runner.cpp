// Runs one Lua script in a process of its own, which whoever started it can end at any moment, whatever the
// script does. The script comes on the standard input, the name of its profile as the first argument. A
// second one names a function that is called once the script has run through, with the third as its argument.
//
// Errors in Lua leave functions by longjmp, so functions that Lua calls hold nothing that has a destructor.
#include "RunnerLimits.h"

#include <lua.hpp>

#include <sys/resource.h>
#ifdef __linux__
#include <csignal>
#include <sys/prctl.h>
#endif

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

/// Instructions between two looks at the clock.
constexpr int InstructionsPerLook = 10000;

std::size_t usedMemory = 0;
std::size_t printedBytes = 0;
Clock::time_point deadline;

void* allocate(void*, void* block, std::size_t oldSize, std::size_t newSize)
{
    // For a new block, the old size is the kind of what it is for.
    const std::size_t size = block ? oldSize : 0;
    if (newSize == 0) {
        std::free(block);
        usedMemory -= size;
        return nullptr;
    }
    if (newSize > size && newSize - size > RunnerLimits::Memory - usedMemory)
        return nullptr;
    void* const moved = std::realloc(block, newSize);
    if (moved)
        usedMemory += newSize - size;
    return moved;
}

void lookAtClock(lua_State* lua, lua_Debug* place)
{
    if (Clock::now() < deadline)
        return;
    // From now on at each instruction: a script that catches the error gets the next one at once.
    lua_sethook(lua, lookAtClock, LUA_MASKCOUNT, 1);
    lua_getinfo(lua, "Sl", place);
    lua_pushfstring(lua, "%s:%d: the script ran for more than %d seconds", place->short_src,
        place->currentline, RunnerLimits::Seconds);
    lua_error(lua);
}

void printPart(lua_State* lua, const char* text, std::size_t size)
{
    if (size > RunnerLimits::Output - printedBytes)
        luaL_error(lua, "the script has printed more than %d KB", int(RunnerLimits::Output / 1024));
    printedBytes += size;
    std::fwrite(text, 1, size, stdout);
}

int print(lua_State* lua)
{
    const int count = lua_gettop(lua);
    for (int i = 1; i <= count; ++i) {
        if (i > 1)
            printPart(lua, "\t", 1);
        std::size_t size = 0;
        const char* text = luaL_tolstring(lua, i, &size);
        printPart(lua, text, size);
        lua_pop(lua, 1);
    }
    printPart(lua, "\n", 1);
    std::fflush(stdout);
    return 0;
}

void removeFrom(lua_State* lua, const char* table, const char* name)
{
    lua_getglobal(lua, table);
    lua_pushnil(lua);
    lua_setfield(lua, -2, name);
    lua_pop(lua, 1);
}

/// What reaches no file, no other program and none of Lua's insides.
void openSafeLibraries(lua_State* lua)
{
    constexpr std::array<luaL_Reg, 7> Libraries {{{LUA_GNAME, luaopen_base}, {LUA_STRLIBNAME, luaopen_string},
        {LUA_TABLIBNAME, luaopen_table}, {LUA_MATHLIBNAME, luaopen_math}, {LUA_UTF8LIBNAME, luaopen_utf8},
        {LUA_COLIBNAME, luaopen_coroutine}, {LUA_OSLIBNAME, luaopen_os}}};
    for (const luaL_Reg& library : Libraries) {
        luaL_requiref(lua, library.name, library.func, 1);
        lua_pop(lua, 1);
    }
    for (const char* name : {"dofile", "loadfile", "load", "collectgarbage", "warn"})
        removeFrom(lua, LUA_GNAME, name);
    removeFrom(lua, LUA_STRLIBNAME, "dump");
    for (const char* name : {"execute", "exit", "getenv", "remove", "rename", "setlocale", "tmpname"})
        removeFrom(lua, LUA_OSLIBNAME, name);
    lua_register(lua, "print", print);
    // The table of all loaded modules would lead back to what was removed.
    lua_pushnil(lua);
    lua_setfield(lua, LUA_REGISTRYINDEX, LUA_LOADED_TABLE);
}

struct Job
{
    const std::vector<char>* script = nullptr;
    const char* profileName = "";
    /// Null for none.
    const char* function = nullptr;
    const char* argument = nullptr;
};

/// Leaves the function of that name on the stack; the parts of the name are joined by points.
void pushFunction(lua_State* lua, const char* name)
{
    lua_pushglobaltable(lua);
    for (const char* part = name; part;) {
        const char* const point = std::strchr(part, '.');
        if (!lua_istable(lua, -1))
            break;
        lua_pushlstring(lua, part, point ? std::size_t(point - part) : std::strlen(part));
        lua_gettable(lua, -2);
        part = point ? point + 1 : nullptr;
        if (!part && lua_isfunction(lua, -1))
            return;
    }
    lua_pushfstring(lua, "The script has no function %s, or it is a local one.", name);
    lua_error(lua);
}

int runJob(lua_State* lua)
{
    const auto* const job = static_cast<const Job*>(lua_touserdata(lua, 1));
    openSafeLibraries(lua);
    lua_createtable(lua, 0, 1);
    lua_pushstring(lua, job->profileName);
    lua_setfield(lua, -2, "name");
    lua_setglobal(lua, "profile");

    lua_pushfstring(lua, "=%s", RunnerLimits::ScriptName);
    // Source alone: what is compiled already could be anything.
    if (luaL_loadbufferx(lua, job->script->data(), job->script->size(), lua_tostring(lua, -1), "t") != LUA_OK)
        return lua_error(lua);
    lua_sethook(lua, lookAtClock, LUA_MASKCOUNT, InstructionsPerLook);
    lua_call(lua, 0, 0);
    if (!job->function)
        return 0;
    pushFunction(lua, job->function);
    if (job->argument)
        lua_pushstring(lua, job->argument);
    lua_call(lua, job->argument ? 1 : 0, 0);
    return 0;
}

std::vector<char> readScript()
{
    std::vector<char> script;
    std::array<char, 65536> part {};
    while (const std::size_t count = std::fread(part.data(), 1, part.size(), stdin))
        script.insert(script.end(), part.begin(), part.begin() + std::ptrdiff_t(count));
    return script;
}

} // namespace

int main(int argc, char** argv)
{
    // Nobody needs the script any more when the one who started it has ended in whatever way.
#ifdef __linux__
    prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
    const rlimit cpu {RunnerLimits::Seconds + 5, RunnerLimits::Seconds + 5};
    setrlimit(RLIMIT_CPU, &cpu);

    const std::vector<char> script = readScript();
    deadline = Clock::now() + std::chrono::seconds(RunnerLimits::Seconds);
    lua_State* const lua = lua_newstate(allocate, nullptr);
    if (!lua)
        return RunnerLimits::Failed;
    Job job {&script, argc > 1 ? argv[1] : "", argc > 2 ? argv[2] : nullptr, argc > 3 ? argv[3] : nullptr};
    lua_pushcfunction(lua, runJob);
    lua_pushlightuserdata(lua, &job);
    const bool isDone = lua_pcall(lua, 1, 0, 0) == LUA_OK;
    if (!isDone) {
        const char* message = lua_tostring(lua, -1);
        std::fputs(message ? message : "the script ended with an error that is no text", stderr);
    }
    std::fflush(stdout);
    // Closing the state would run the script's finalizers, which have no business any more.
    return isDone ? RunnerLimits::Done : RunnerLimits::Failed;
}
