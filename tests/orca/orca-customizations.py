# Read by Orca when it starts: all that it says goes to a file, and nothing to a voice, to Braille or to sounds. What is typed is
# read letter by letter as it comes into a box, not as a key goes down, so that a box that tells nothing is noticed.
import os

import orca.debug
import orca.settings

orca.debug.debugLevel = orca.debug.LEVEL_INFO
orca.debug.debugFile = open(os.environ["ORCA_HEARD"], "a", buffering=1, encoding="utf-8")
orca.settings.speechServerFactory = None
orca.settings.speechFactoryModules = []
orca.settings.enableKeyEcho = False
orca.settings.enableEchoByCharacter = True
orca.settings.sayAllOnLoad = False
orca.settings.pageSummaryOnLoad = False
orca.settings.enableBraille = False
orca.settings.enableSound = False
# What an event was about is read anew for each, over the bus, and takes longer than all else.
orca.debug.printObjectEvent = lambda *_, **__: None
orca.debug.printDetails = lambda *_, **__: None
