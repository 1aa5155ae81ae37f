// Moving and removing directory entries in single steps. All names are relative to open folders; 0
// or an errno.
#ifndef NETWORK_FILE_MOVES_H
#define NETWORK_FILE_MOVES_H

namespace store {

struct Place
{
    int folder;
    const char* name;
};

// Gives the entry another place; EEXIST when that one is taken.
int moveToFree(Place from, Place to);

// Puts the entry into another place. What was there takes its old place, where the file system can
// exchange two entries in one step (all of Linux's own do), else it is gone.
int swapIn(Place from, Place to);

// Removes an entry, of a folder all that is in it too, without following symbolic links. An entry
// that does not exist is no error.
int removeTree(Place place);

// Removes a folder like that, the entry `last` in it after all others. Once that one has gone the
// folder counts as removed, though an empty one may be left: an error says that `last`, or what is
// no folder, is there still.
int removeFolder(Place place, const char* last);

} // namespace store

#endif
