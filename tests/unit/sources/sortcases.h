/// What each sort, of the user or of the reel, makes of the keys of a file.
#ifndef SORTCASES_H
#define SORTCASES_H

/// Key numbers of the SEG-Y header, header words counted from 1, and what the run-time record tells.
struct SortCase {
    int isort, reelSort, code, ipkey, iskey, iepkey, ieskey, idtyp, ipsort;
};

constexpr SortCase sortCases[] = {
    {1, 0, 1, 3, 4, 4, 1, 0, 2},       {2, 0, 2, 5, 4, 6, 1, 0, 2},     {3, 0, 3, 11, 4, 11, 2, 0, 3},
    {4, 0, 4, 6, 7, 15, 2, 0, 1},      {5, 0, 5, 48, 6, 48, 15, 7, 1},  {6, 0, 6, 12, 2, 2, 1, 0, 4},
    {7, 0, 7, 48, 49, 49, 50, 0, 7},   {8, 0, 8, 49, 48, 50, 49, 0, 8}, {9, 0, 9, 48, 49, 49, 50, 7, 7},
    {10, 0, 10, 49, 48, 50, 49, 7, 8}, {11, 0, 11, 1, 4, 1, 30, 0, 5},  {0, 1, 1, 3, 4, 4, 1, 0, 2},
    {0, 2, 4, 6, 7, 15, 2, 0, 1},      {0, 3, 0, 48, 6, 48, 1, 0, 1},   {0, 4, 5, 48, 6, 48, 15, 7, 1},
    {0, 5, 3, 11, 4, 11, 2, 0, 3},     {0, 6, 0, 6, 2, 15, 2, 0, 5},    {0, 7, 6, 12, 2, 2, 1, 0, 4},
    {0, 9, 1, 3, 4, 4, 1, 0, 2},       {0, 0, 1, 3, 4, 4, 1, 0, 2}};

#endif
