import {createApp, createSSRApp} from 'vue';

import Application from './application.vue';

const root = document.getElementById('application')!;
const make = root.hasChildNodes() ? createSSRApp : createApp;
make(Application).mount(root);
