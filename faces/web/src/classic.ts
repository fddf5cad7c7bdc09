// The script for pages without modules: what the module exports is global.
import {classesOfPage} from './define';
import {embeddedLogic} from './embedded';

Object.assign(globalThis, classesOfPage(embeddedLogic));
