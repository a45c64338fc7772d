void printVersion(void);

int main(void) {
    printVersion();
    return 0;
}
