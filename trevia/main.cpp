/// The `trevia` program: lines, datasets, tables and flows of the embedded host, without widgets.
int main()
{
    return 0;
}
