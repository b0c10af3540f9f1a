/* Implements a minimal kernel library that the component can use. Its strings are not shared between processes.
   Build it with a 32-bit compiler: i686-w64-mingw32-gcc -shared -static kernel.c kernel.def -o QmxKrn2K.dll */
#include <stdlib.h>
#include <string.h>

struct Entry { char *key, *value; struct Entry *next; };
static struct Entry *entries;

static struct Entry *find(const char *key) {
    struct Entry *entry = entries;
    while (entry && strcmp(entry->key, key) != 0) entry = entry->next;
    return entry;
}

long __stdcall E_SetString(char *key, char *value) {
    struct Entry *entry = find(key);
    if (!entry) {
        entry = calloc(1, sizeof *entry);
        entry->key = strdup(key);
        entry->next = entries;
        entries = entry;
    }
    free(entry->value);
    entry->value = strdup(value);
    return 1;
}

long __stdcall E_GetString(char *key) {
    struct Entry *entry = find(key);
    return entry ? (long)entry->value : 0;
}

long __stdcall DB_DataBase(void) { return 1; }

long __stdcall O_GetName(long handle) { return handle == 1 ? (long)"AMPLIFIER" : 0; }
