#include <TestCase.h>
class CommandPanelTest : public TestCase
{
    Q_OBJECT
};
VELTRANO_TEST_MAIN(CommandPanelTest)
#include "CommandPanelTest.moc"
