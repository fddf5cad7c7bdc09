import {createSSRApp} from 'vue';
import {renderToString} from 'vue/server-renderer';

import Application from './application.vue';

export const render = () => renderToString(createSSRApp(Application));
