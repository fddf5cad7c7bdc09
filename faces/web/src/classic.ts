// The classic script, for pages without modules: the exports of the module become globals.
import {classesOfPage} from './define';
import {embeddedLogic} from './embedded';

Object.assign(globalThis, classesOfPage(embeddedLogic));
