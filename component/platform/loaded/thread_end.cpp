// Part of the loaded library only. The C runtime keeps a library in memory for as long as some thread's variables of it
// are to be destroyed, so the host's main thread would hold this one for ever. These destructors are kept here instead:
// they run at a thread's end, and for the thread that unloads the library when it is unloaded. Other threads then lose
// what their variables owned: the alternate stack, which must stay while they may stand on it, and a few texts.

#include <cstdlib>

#include <pthread.h>

namespace {

struct Destructor {
    void (*run)(void*);
    void* object;
    Destructor* before;
};

void runAll(void* last) {
    for (auto* next = static_cast<Destructor*>(last); next;) {
        Destructor* const done = next;
        done->run(done->object);
        next = done->before;
        std::free(done);
    }
}

struct Key {
    Key() noexcept { made = pthread_key_create(&key, &runAll) == 0; }
    ~Key() {
        if (!made) return;
        void* const last = pthread_getspecific(key);
        pthread_setspecific(key, nullptr);
        pthread_key_delete(key);
        runAll(last);
    }
    pthread_key_t key{};
    bool made = false;
};

Key& key() {
    static Key own;
    return own;
}

}  // namespace

/// Stands before the runtime's own of the same name (Itanium C++ ABI, 3.3.6) for the code of this library.
extern "C" int __cxa_thread_atexit(void (*run)(void*), void* object, void*) noexcept {
    Key& own = key();
    auto* const entry = own.made ? static_cast<Destructor*>(std::malloc(sizeof(Destructor))) : nullptr;
    if (!entry) return -1;
    *entry = {run, object, static_cast<Destructor*>(pthread_getspecific(own.key))};
    return pthread_setspecific(own.key, entry);
}
