#include <windows.h>

#include <stdlib.h>

/* Stays alive for the milliseconds given as argument (30 s by default), so that a
   test can find it among the running processes and then end it. */
int main(int argc, char** argv)
{
    Sleep(argc > 1 ? (DWORD)strtoul(argv[1], NULL, 10) : 30000);
    return 0;
}
